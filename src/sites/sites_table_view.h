#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QSortFilterProxyModel;
class QTableView;

namespace quillon {

class SiteListTable;

/// A table of sites under a caption that counts its rows, above the buttons for what can be done to them. A
/// filter by name leaves out of sight what does not match.
class SitesTableView : public QWidget
{
    Q_OBJECT
public:
    /// The table's name is @p name, and the widths of its columns are kept in the settings under @p
    /// settingsKey; @p caption has the mark of its key. The @p sites must outlive the view.
    SitesTableView(const QString &name, const QString &caption, SiteListTable &sites,
                   const QString &settingsKey);
    ~SitesTableView() override;

    [[nodiscard]] QTableView &table() const { return *m_table; }
    /// The rows of the sites' own model that are selected.
    [[nodiscard]] QList<int> selectedRows() const;

    /// A new button below the table; Return presses it only while it has the focus.
    QPushButton *addButton(const QString &name, const QString &text, const QString &toolTip);
    void setFilter(const QString &text);

Q_SIGNALS:
    void selectedRowsChanged(const QList<int> &rows);
    /// @p row is one of the sites' own model.
    void rowDoubleClicked(int row);

private:
    void bindTable();
    void keepScrolled();
    void showCount();

    QString m_caption;
    QString m_settingsKey;
    QSortFilterProxyModel *m_rows;
    QTableView *m_table;
    QLabel *m_label;
    QHBoxLayout *m_buttons;
};

} // namespace quillon
