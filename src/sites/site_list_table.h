#pragma once

#include <QAbstractTableModel>
#include <QStringList>

namespace quillon {

/// A table of sites with their addresses, as the site list editor has two.
class SiteListTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        SiteName,
        Url,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows @p names with their addresses, index for index. False when they were shown already, so that rows
    /// stay selected.
    bool setSites(const QStringList &names, const QStringList &urls);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList m_names;
    QStringList m_urls;
};

} // namespace quillon
