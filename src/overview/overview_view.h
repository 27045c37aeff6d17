#pragma once

#include "overview/file_menu.h"

#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTableView;
class QToolButton;

namespace quillon {

class NaturalSortProxy;
class OverviewController;
class TitleCommands;

/// The main window's first view: the titles, and below them where the selected one was submitted and its
/// errors. PAD files that are dropped onto it are imported.
class OverviewView : public QWidget
{
    Q_OBJECT
public:
    OverviewView(OverviewController &overview, TitleCommands &commands, QWidget *parent = nullptr);
    ~OverviewView() override;

    /// Actions that the list offers in its context menu.
    void setListActions(const QList<QAction *> &actions);

Q_SIGNALS:
    /// The user asks to edit the selected title.
    void editRequested();
    /// The user asks for the field @p key of the selected title, by a message about it.
    void fieldRequested(const QString &key);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *newTitlesPanel();
    QWidget *newEmptyPage();
    QWidget *newButtonRow();
    QWidget *newDetailsPanel();
    void showSelectedRow(int row);
    void keepPlace();
    void showErrors();
    void updateButtons();
    void saveLayout() const;
    void restoreLayout();

    OverviewController &m_overview;
    TitleCommands &m_commands;
    NaturalSortProxy *m_sorted;
    QStackedWidget *m_titlesOrHint = nullptr;
    QTableView *m_softwareTableView = nullptr;
    QTableView *m_submittedToTableView = nullptr;
    QListWidget *m_validationErrorsView = nullptr;
    QLabel *m_errorsCaption = nullptr;
    QSplitter *m_splitter = nullptr;
    int m_place = 0; ///< The row in the view that was selected last.
    QList<std::pair<QPushButton *, FileMenu::Item>> m_buttons; ///< Each with what enables it.
};

} // namespace quillon
