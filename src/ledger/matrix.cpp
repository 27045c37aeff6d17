#include "ledger/matrix.h"

#include "journal/journal.h"
#include "journal/site_knowledge.h"
#include "ledger/version_order.h"
#include "platform/string_dictionary.h"
#include "platform/translated_text.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class MatrixText
{
    Q_DECLARE_TR_FUNCTIONS(Matrix)
};

using Relation = Matrix::Relation;
using ledger::State;

Relation relationOf(const Standing &standing, const QString &current)
{
    if (standing.isCurrent)
        return Relation::Current;
    const auto order = versionOrder(standing.version, current);
    return std::is_lt(order) ? Relation::Older : std::is_gt(order) ? Relation::Newer : Relation::Other;
}

/// How a relation looks, and what it is in words.
struct Wording
{
    QStringView sign;
    QStringView words;
};

constexpr std::array<Wording, 4> wordings = {{
    {u"✓", QUILLON_TR_NOOP("Matrix", "the title's version")},
    {u"↑", QUILLON_TR_NOOP("Matrix", "an older version")},
    {u"↓", QUILLON_TR_NOOP("Matrix", "a newer version")},
    {u"≠", QUILLON_TR_NOOP("Matrix", "another version")},
}};

/// In the order of ledger::State; the window says of them what the database does.
constexpr std::array<QStringView, 5> stateNames = {
    u"", QUILLON_TR_NOOP("Matrix", "listed"), QUILLON_TR_NOOP("Matrix", "refused"),
    QUILLON_TR_NOOP("Matrix", "gone"), QUILLON_TR_NOOP("Matrix", "removed")};

/// What is said of a state besides the version; nothing of what was only sent.
QString stateWords(State state)
{
    return state == State::Sent ? QString() : translated("Matrix", stateNames[size_t(state)]);
}

void describe(Matrix::Cell &cell)
{
    const Wording &wording = wordings[size_t(cell.relation)];
    const QString version = cell.version.isEmpty() ? u"?"_s : cell.version;
    const QString words = stateWords(cell.state);
    cell.text = wording.sign + u' ' + version + (words.isEmpty() ? QString() : u", "_s + words);
    cell.description = version + u", "_s + translated("Matrix", wording.words) +
                       (words.isEmpty() ? QString() : u", "_s + words) +
                       (cell.isMarked ? QString() : u", "_s + MatrixText::tr("no longer marked"));
}

/// The places of @p versions when they are sorted; equal ones share a place.
QHash<QString, int> ranks(QStringList versions)
{
    std::ranges::sort(versions);
    const auto same = std::unique(versions.begin(), versions.end());
    versions.erase(same, versions.end());
    std::ranges::stable_sort(versions, [](const QString &left, const QString &right) {
        return std::is_lt(versionOrder(left, right));
    });
    QHash<QString, int> places;
    for (const QString &version : std::as_const(versions))
        places.insert(version, int(places.size()));
    return places;
}

/// What the journal knows of all titles, and of sites.
struct KnownOfAll
{
    QList<ledger::TitleEntry> entries;
    QSet<QString> goneSites;
};

Result<KnownOfAll> knownOfAll(Database &database)
{
    auto entries = ledger::newestOfAll(database);
    if (!entries)
        return entries.error();
    auto goneSites = site_knowledge::goneSites(database);
    if (!goneSites)
        return goneSites.error();
    return KnownOfAll{.entries = *std::move(entries), .goneSites = *std::move(goneSites)};
}

} // namespace

Matrix::Matrix(const QList<Title> &titles, const QList<ledger::TitleEntry> &entries,
               const QSet<QString> &gone)
{
    QHash<QString, QList<ledger::Entry>> byTitle;
    for (const ledger::TitleEntry &each : entries)
        byTitle[each.title].append(each.entry);
    QList<Place> places;
    for (const Title &title : titles) {
        m_rows.append({.title = title.name, .version = title.summary.version.value_or(QString())});
        const QList<ledger::Entry> known = byTitle.value(title.name);
        for (const Standing &standing : standings(title.summary, known, gone))
            places.append(
                {.row = m_rows.size() - 1, .site = siteOf(standing.site), .kind = kindOf(standing)});
        for (const ledger::Entry &entry : known)
            siteOf(entry.site); // Also of what was taken away.
    }
    fill(places);
    rank();
}

qsizetype Matrix::siteOf(const QString &site)
{
    const auto known = m_sitePlaces.constFind(site);
    if (known != m_sitePlaces.cend())
        return *known;
    m_sites.append(site);
    return *m_sitePlaces.insert(site, m_sites.size() - 1);
}

/// The place among m_kinds, from 1, of what is said of @p standing in the last row.
quint32 Matrix::kindOf(const Standing &standing)
{
    Row &row = m_rows.last();
    row.staleCount += int(standing.isStale());
    const Relation relation = relationOf(standing, row.version);
    const int states = int(stateNames.size());
    const int looks = (int(relation) * states + int(standing.state)) * 2 + int(standing.isMarked);
    quint32 &place = m_kindPlaces[{standing.version, looks}];
    if (place == 0) {
        Cell cell{.version = standing.version,
                  .relation = relation,
                  .state = standing.state,
                  .isMarked = standing.isMarked,
                  .isStale = standing.isStale()};
        describe(cell);
        m_kinds.append(cell);
        place = quint32(m_kinds.size());
    }
    return place;
}

/// Puts the sites in the order of the catalogue, and each of @p places where it then belongs.
void Matrix::fill(const QList<Place> &places)
{
    const QStringList found = m_sites;
    std::ranges::sort(m_sites, CaseInsensitiveOrder());
    for (qsizetype site = 0; site < m_sites.size(); ++site)
        m_sitePlaces[m_sites[site]] = site;
    QList<qsizetype> sorted;
    for (const QString &site : found)
        sorted.append(m_sitePlaces[site]);
    m_cells.resize(size_t(m_rows.size() * m_sites.size()));
    for (const Place &each : places)
        m_cells[size_t(each.row * m_sites.size() + sorted[each.site])] = each.kind;
}

void Matrix::rank()
{
    QStringList versions;
    for (const Cell &cell : std::as_const(m_kinds))
        versions.append(cell.version);
    for (const Row &row : std::as_const(m_rows))
        versions.append(row.version);
    const QHash<QString, int> places = ranks(std::move(versions));
    for (Cell &cell : m_kinds)
        cell.rank = places.value(cell.version);
    for (Row &row : m_rows)
        row.versionRank = places.value(row.version);
}

Result<ReadMatrix> readMatrix()
{
    auto titles = loadTitles(OldLayout::Leave);
    if (!titles)
        return titles.error();
    const auto known = Journal::ofDataFolder().find(knownOfAll);
    const KnownOfAll present = known.valueOr({});
    ReadMatrix result{.matrix = Matrix(titles->titles, present.entries, present.goneSites),
                      .failures = titles->failures};
    if (!known)
        result.failures.append(known.error());
    return result;
}

} // namespace quillon
