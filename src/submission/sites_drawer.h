#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;

namespace quillon {

class SubmitControl;

/// The drawer with the table of sites, and a field that leaves those in it whose name holds a text.
///
/// A site that is filtered away stays the selected one until another is selected.
class SitesDrawer : public QWidget
{
    Q_OBJECT
public:
    explicit SitesDrawer(SubmitControl &control, QWidget *parent = nullptr);
    ~SitesDrawer() override;

    /// Puts the keyboard focus into the table, or into the field.
    void focusTable();
    void focusFilter();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildTable();
    void filter(const QString &text);
    void selectionChanged();
    void showSelectedRow(int row);
    void showCount();

    SubmitControl &m_control;
    QSortFilterProxyModel *m_sorted;
    QLineEdit *m_filter;
    QTableView *m_sitesTableView;
    QLabel *m_count;
};

} // namespace quillon
