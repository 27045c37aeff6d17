#pragma once

#include "controls/icon_cell.h"

#include <QAbstractTableModel>
#include <QHash>

namespace quillon {

/// Where the selected title was submitted: a site, the version then, and whether that is the current one.
class SubmittedToTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Site,
        Version,
        Status,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the marks of a title: @p versions beside @p sites, a missing version reads as empty. The same
    /// site named twice has the later version. One site of empty name means that there are no submissions.
    void setMarks(const QStringList &sites, const QStringList &versions, const QString &currentVersion);
    /// Shows nothing.
    void clear();

    [[nodiscard]] const QStringList &submittedToTableDataArray() const { return m_submittedToTableDataArray; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] bool hasNoSubmissions() const;
    [[nodiscard]] QString textAt(int row, int column) const;

    QStringList m_submittedToTableDataArray;
    QHash<QString, QString> m_submitToVersDict;
    QHash<QString, IconCell> m_submitToVersLatestDict;
};

} // namespace quillon
