#pragma once

#include "journal/history.h"
#include "pad/field_catalogue.h"

#include <QAbstractTableModel>

namespace quillon {

/// The history of a title, or of one of its fields, newest first: when, which field, and what was done. Rows
/// come from the journal as they are scrolled to.
class HistoryTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Time,
        Field,
        Origin,
        ColumnCount
    };

    /// Reads the newest rows of @p title; with @p field those of that field only.
    HistoryTable(const QString &title, const std::optional<FieldId> &field, QObject *parent = nullptr);

    /// Adds what has come in since. Rows that are there stay.
    void refresh();

    /// A row that is in the table.
    [[nodiscard]] const history::Row &entry(int row) const { return m_rows[row]; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

private:
    /// The next rows that are older than row @p before.
    [[nodiscard]] QList<history::Row> read(qint64 before) const;

    QString m_title;
    QString m_field; ///< The name of its control; empty for all.
    QList<history::Row> m_rows;
    bool m_hasMore = true;
};

} // namespace quillon
