#pragma once

#include "submission/site_catalogue.h"

#include <QAbstractTableModel>

namespace quillon {

/// The submission window's table: each site and where the selected title stands with it.
class SubmissionSitesTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Sites,
        Status,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows @p sites with a state each; no @p states at all when they are not known. Rows stay selected
    /// where the sites are the same as before.
    void setSites(const QStringList &sites, const QList<SiteState> &states);

    /// The site in @p row; null without one.
    [[nodiscard]] QString siteAt(int row) const { return m_sites.value(row); }
    /// The row of @p site; -1 without one.
    [[nodiscard]] int rowOf(const QString &site) const { return int(m_sites.indexOf(site)); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList m_sites;
    QList<SiteState> m_states;
};

} // namespace quillon
