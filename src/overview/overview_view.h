#pragma once

#include <QSet>
#include <QWidget>

#include <optional>

class QLabel;
class QListWidget;
class QSplitter;
class QStackedWidget;
class QTableView;

namespace quillon {

class CommandSet;
class NaturalSortProxy;
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
    QWidget *newTitlesPanel(const CommandSet &commands);
    QWidget *newEmptyPage();
    QWidget *newButtonRow(const CommandSet &commands);
    QWidget *newDetailsPanel();
    void showSelectedRow(int row);
    void showLoadedList();
    int takeAddedRow();
    void keepPlace();
    void showErrors();
    void showListOrHint();
    void saveLayout() const;
    void restoreLayout();

    OverviewController &m_overview;
    TitleCommands &m_titles;
    NaturalSortProxy *m_sorted;
    QStackedWidget *m_titlesOrHint = nullptr;
    QTableView *m_softwareTableView = nullptr;
    QTableView *m_submittedToTableView = nullptr;
    QListWidget *m_validationErrorsView = nullptr;
    QLabel *m_errorsCaption = nullptr;
    QSplitter *m_splitter = nullptr;
    QSplitter *m_details = nullptr;
    int m_place = -1;                     ///< The row in the view that was selected or added last.
    std::optional<QSet<QString>> m_names; ///< Of the titles in the list, once it was loaded.
};

} // namespace quillon
