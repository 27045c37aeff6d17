#pragma once

#include "changes/change_preview.h"

namespace quillon {

/// The changes in one title of a preview, each with a tick: field, old text, new text.
class ChangesTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Field,
        Before,
        After,
        ColumnCount
    };

    /// @p preview must outlive it.
    explicit ChangesTable(ChangePreview &preview, QObject *parent = nullptr);

    /// Shows what changes in the title in @p row of the preview; nothing for -1.
    void show(int row);

    /// A change that is in the table.
    [[nodiscard]] const Change &change(int row) const { return m_changes[row]; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    ChangePreview &m_preview;
    int m_row = -1;
    QList<Change> m_changes;
};

} // namespace quillon
