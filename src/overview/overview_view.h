#pragma once

#include <QWidget>

class QSplitter;

namespace quillon {

class CommandSet;
class OverviewController;
class TitleCommands;

/// The main window's first view: the titles, and below them where the selected one was submitted and its
/// errors. PAD files that are dropped onto it are imported.
class OverviewView : public QWidget
{
    Q_OBJECT
public:
    /// The buttons under the list and its context menu have their actions from @p commands. All must outlive
    /// the view.
    OverviewView(OverviewController &overview, TitleCommands &titles, const CommandSet &commands,
                 QWidget *parent = nullptr);
    ~OverviewView() override;

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
};

} // namespace quillon
