#pragma once

#include "controls/icon_cell.h"
#include "overview/title_list.h"

#include <QAbstractTableModel>
#include <QDate>
#include <QHash>

namespace quillon {

/// The table of titles: one row each, in the order of the list.
class SoftwareTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        SoftwareTitle,
        Version,
        ReleaseDate,
        SupportedOS,
        Validated,
        Submissions,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces all rows.
    void setTitles(const QList<Title> &titles);
    /// Replaces the values of one row, whose name stays.
    void updateRow(int row, const Summary &summary);

    [[nodiscard]] const QStringList &swNameArray() const { return m_swNameArray; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// The cells of one title, made when the first of them is asked for: of ten thousand titles few are in
    /// sight.
    struct Row
    {
        QDate date;
        QString releaseDate;
        IconCell os;
        IconCell valid;
        IconCell submissions;
    };
    static Row rowOf(const Summary &summary);
    [[nodiscard]] const Row &rowAt(int row) const;
    [[nodiscard]] QString textAt(int row, int column) const;
    [[nodiscard]] const IconCell *iconsAt(int row, int column) const;

    QStringList m_swNameArray;
    QList<Summary> m_summaries;
    mutable QHash<int, Row> m_rows;
};

} // namespace quillon
