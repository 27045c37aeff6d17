#pragma once

#include "ledger/standing.h"
#include "overview/title_list.h"

#include <QHash>
#include <QStringList>

#include <vector>

namespace quillon {

/// Where every title stands with every site that was ever used. Cells that say the same share what they say,
/// so that hundreds of thousands of them take a few bytes each.
class Matrix
{
public:
    /// The version on a site beside the title's; which is older and which newer only how people read them.
    enum class Relation : quint8
    {
        Current, ///< The very same text.
        Older,
        Newer,
        Other ///< Neither, but written otherwise.
    };

    /// What a cell says.
    struct Cell
    {
        QString version;
        Relation relation = Relation::Current;
        ledger::State state = ledger::State::Sent;
        bool isMarked = false;
        bool isStale = false;     ///< Standing::isStale().
        QString text = {};        ///< For the eye: a sign and the version.
        QString description = {}; ///< The same in words.
        int rank = 0;             ///< Its place when cells are sorted by version.
    };

    struct Row
    {
        QString title;
        QString version;
        int versionRank = 0; ///< Its place when titles are sorted by version.
        int staleCount = 0;  ///< Its cells that are stale.
    };

    Matrix() = default;
    /// @p entries hold the newest of each title and site; those of titles that are not in the list count not.
    /// Sites in @p gone are gone for all titles.
    Matrix(const QList<Title> &titles, const QList<ledger::TitleEntry> &entries,
           const QSet<QString> &gone = {});

    /// In the order of the list.
    [[nodiscard]] const QList<Row> &rows() const { return m_rows; }
    /// Every site that any of the titles was ever sent to, in alphabetical order.
    [[nodiscard]] const QStringList &sites() const { return m_sites; }
    /// What stands there; null when nothing was sent.
    [[nodiscard]] const Cell *cell(qsizetype row, qsizetype site) const
    {
        const quint32 kind = m_cells[size_t(row * m_sites.size() + site)];
        return kind == 0 ? nullptr : &m_kinds[kind - 1];
    }

private:
    /// What is said in a row of a site, which has a number in the order in which sites are found.
    struct Place
    {
        qsizetype row;
        qsizetype site;
        quint32 kind;
    };
    qsizetype siteOf(const QString &site);
    quint32 kindOf(const Standing &standing);
    void fill(const QList<Place> &places);
    void rank();

    QList<Row> m_rows;
    QStringList m_sites;
    QHash<QString, qsizetype> m_sitePlaces;
    std::vector<quint32> m_cells; ///< Row by row: the place among m_kinds, from 1; 0 for nothing.
    QList<Cell> m_kinds;
    QHash<std::pair<QString, int>, quint32> m_kindPlaces;
};

/// The matrix with what could not be read of it.
struct ReadMatrix
{
    Matrix matrix;
    QList<Error> failures = {};
};

/// That of the data folder. An error when the data folder cannot be listed; without the ledger it is that of
/// the marks.
Result<ReadMatrix> readMatrix();

} // namespace quillon
