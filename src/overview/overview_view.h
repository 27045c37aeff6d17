#pragma once

#include <QWidget>

class QSplitter;

namespace quillon {

class CommandSet;
class Editor;
class OverviewController;
class TitleCommands;
class TitleDetailsView;

/// The main window's first view: the titles, and below them where the selected one was submitted and its
/// errors. PAD files that are dropped onto it are imported.
class OverviewView : public QWidget
{
    Q_OBJECT
public:
    /// The buttons under the list and its context menu have their actions from @p commands, and the form of
    /// @p editor holds the selected title. All must outlive the view.
    OverviewView(OverviewController &overview, TitleCommands &titles, const Editor &editor,
                 const CommandSet &commands, QWidget *parent = nullptr);
    ~OverviewView() override;

    /// Other rule packs are switched on: what they advise is shown.
    void adviseAnew();

Q_SIGNALS:
    /// The user asks to edit the selected title.
    void editRequested();
    /// The user asks for the field @p key of the selected title, by a message about it.
    void fieldRequested(const QString &key);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    OverviewController &m_overview;
    TitleCommands &m_titles;
    QSplitter *m_splitter;
    TitleDetailsView *m_details = nullptr;
};

} // namespace quillon
