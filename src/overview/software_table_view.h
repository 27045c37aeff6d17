#pragma once

#include <QSet>
#include <QStackedWidget>

#include <optional>

class QTableView;

namespace quillon {

class CommandSet;
class NaturalSortProxy;
class OverviewController;

/// The list of titles, sorted as the author wants it; while there is none, what to do first. The row that is
/// selected is the controller's, both ways.
class SoftwareTableView : public QStackedWidget
{
    Q_OBJECT
public:
    /// The list's context menu and the hint's button have their actions from @p commands. Both must outlive
    /// the view.
    SoftwareTableView(OverviewController &overview, const CommandSet &commands, QWidget *parent = nullptr);
    ~SoftwareTableView() override;

Q_SIGNALS:
    /// The author asks to edit the selected title.
    void editRequested();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildTable(const CommandSet &commands);
    void bindSelection();
    void restoreColumns();
    void showListOrHint();
    void showSelectedRow(int row);
    void showLoadedList();
    int takeAddedRow();
    void keepPlace();

    OverviewController &m_overview;
    const CommandSet &m_commands;
    NaturalSortProxy *m_sorted;
    QTableView *m_table;
    int m_place = -1;                     ///< The row in sight's order that was selected or added last.
    std::optional<QSet<QString>> m_names; ///< Of the titles in the list, once it was loaded.
};

} // namespace quillon
