#pragma once

#include "journal/deleted_items.h"

#include <QAbstractTableModel>

namespace quillon {

class AlertSheets;

/// What became of bringing something back; true when it is there again, else with a sentence for the author.
Result<> bringBack(const deleted_items::Item &item, const QString &name);

/**
 * The window of deleted titles and sites, without its screen: a table of them, the newest first, and what can
 * be done to each. Rows that do not exist are ignored.
 */
class DeletedTitles : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Name,
        What,
        Deleted,
        KeptUntil,
        ColumnCount
    };

    /// @p alerts must outlive this.
    explicit DeletedTitles(AlertSheets &alerts, QObject *parent = nullptr);

    /// Reads the list anew and has the window shown.
    void open();

    /// Brings the item in @p row back; one whose name is taken stays, and the author is told.
    void restore(int row);

    /// Asks, and removes the item in @p row for good.
    void forgetNow(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void showWindow();

private:
    void reload();
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < m_items.size(); }

    AlertSheets &m_alerts;
    QList<deleted_items::Item> m_items;
};

} // namespace quillon
