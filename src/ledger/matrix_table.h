#pragma once

#include "ledger/matrix.h"

#include <QAbstractTableModel>

namespace quillon {

/// The matrix as a table: titles down, and across each title's version, how many sites are to be brought up
/// to date, and the sites. What is found and how it is sorted is decided here, so that nothing lies between a
/// cell and what it says.
class MatrixTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Version,
        StaleCount,
        FirstSite
    };
    /// Whether a cell is stale.
    static constexpr int StaleRole = Qt::UserRole;

    /// What is shown: titles and sites whose names hold these texts, in any case.
    struct Filter
    {
        QString titles = {};
        QString sites = {};
        bool onlyStale = false; ///< Only titles and sites that have a stale cell among what is shown.
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setMatrix(Matrix matrix);
    void setFilter(const Filter &filter);
    /// Sorts by @p column; by the titles' own order with -1. What was not sent stands at the end.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    [[nodiscard]] QString titleAt(int row) const { return m_matrix.rows()[m_rows[row]].title; }
    /// The site of @p column; null for one of the first two.
    [[nodiscard]] QString siteAt(int column) const;
    /// Where a title or a site stands now; -1 while it is not shown.
    [[nodiscard]] int rowOf(const QString &title) const;
    [[nodiscard]] int columnOf(const QString &site) const;
    /// What @p index says of a title on a site; null for nothing.
    [[nodiscard]] const Matrix::Cell *cell(const QModelIndex &index) const;

    /// How many of the cells that are shown are stale.
    [[nodiscard]] qsizetype staleCount() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void orderTitles();
    void arrange();
    void leaveOutWhatIsCurrent();
    void sortRows();
    [[nodiscard]] bool isStale(int row, int site) const;
    /// What @p row is sorted by.
    [[nodiscard]] int sortKey(int row) const;
    [[nodiscard]] QString textAt(const QModelIndex &index) const;
    [[nodiscard]] QString descriptionAt(const QModelIndex &index) const;

    Matrix m_matrix;
    QList<int> m_byTitle; ///< The rows of the matrix as people order their titles.
    Filter m_filter;
    QString m_sortSite; ///< Null unless a site's column sorts.
    int m_sortColumn = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
    QList<int> m_rows;  ///< Those of the matrix, in the order in which they are shown.
    QList<int> m_sites; ///< Likewise.
};

} // namespace quillon
