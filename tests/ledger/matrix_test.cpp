#include "ledger/matrix_table.h"
#include "ledger/version_order.h"
#include "support/testing.h"

#include <QAbstractItemModelTester>

TEST(VersionOrder, IsThatOfPeople)
{
    const QStringList ascending =
        words(u"0.9|1.0 alpha|1.0beta2|1.0 beta 10|1.0-rc1|1.0|1.0a|1.0.1|1.9|01.10|1.10.2|"
              "2|10|99999999999999999999999"_s,
              u'|');
    for (qsizetype right = 0; right < ascending.size(); ++right) {
        for (qsizetype left = 0; left < ascending.size(); ++left)
            EXPECT_TRUE(versionOrder(ascending[left], ascending[right]) == (left <=> right))
                << ascending[left] << ascending[right];
    }
    EXPECT_TRUE(std::is_eq(versionOrder(u"1.0", u"1,0 ")));
}

namespace {

Title title(const QString &name, const QString &version, const QString &sites, const QString &versions)
{
    Title made{.name = name, .summary = {}};
    made.summary.version = version;
    made.summary.sites = sites;
    made.summary.versions = versions;
    return made;
}

/// What the table shows: a line for each title.
QStringList shown(const MatrixTable &table)
{
    QStringList lines;
    for (int row = 0; row < table.rowCount(); ++row) {
        QString line = table.titleAt(row);
        for (int column = 0; column < table.columnCount(); ++column)
            line += u'|' + table.data(table.index(row, column), Qt::DisplayRole).toString();
        lines.append(line);
    }
    return lines;
}

} // namespace

TEST(MatrixTable, ShowsFindsAndSorts)
{
    using ledger::State;
    MatrixTable table;
    const QAbstractItemModelTester tester(&table);
    table.setMatrix(Matrix({title(u"Tool 10"_s, u"1.10"_s, u"b,A,gone"_s, u"1.9,1.10,1.0"_s),
                            title(u"Tool 9"_s, u"1.9"_s, u"A"_s, u"1.10,"_s), title(u"Bare"_s, {}, {}, {})},
                           {{u"Tool 9"_s, {.site = u"c"_s, .version = u"1,9"_s, .state = State::Refused}},
                            {u"Tool 10"_s, {.site = u"A"_s, .version = u"1.9"_s, .state = State::Listed}},
                            {u"Bare"_s, {.site = u"b"_s, .version = u"1"_s, .state = State::Removed}},
                            {u"Deleted"_s, {.site = u"z"_s, .version = u"1"_s}}},
                           {u"gone"_s}));
    const QString bare = u"Bare||0||||"_s;
    const QString nine = u"Tool 9|1.9|2|↓ 1.10||≠ 1,9, refused|"_s;
    const QString ten = u"Tool 10|1.10|1|✓ 1.10, listed|↑ 1.9||↑ 1.0, gone"_s;
    EXPECT_EQ(shown(table), QStringList({bare, nine, ten}));
    EXPECT_EQ(table.data(table.index(1, 4), Qt::AccessibleTextRole),
              u"1,9, another version, refused, no longer marked"_s);
    EXPECT_EQ(table.data(table.index(1, 3), Qt::AccessibleTextRole), u"not sent"_s);
    EXPECT_EQ(table.staleCount(), 3);

    const std::tuple<int, Qt::SortOrder, QStringList> orders[] = {
        {MatrixTable::Version, Qt::DescendingOrder, {ten, nine, bare}},
        {MatrixTable::StaleCount, Qt::DescendingOrder, {nine, ten, bare}},
        {MatrixTable::FirstSite + 1, Qt::AscendingOrder, {ten, bare, nine}},
        {-1, Qt::DescendingOrder, {ten, nine, bare}},
    };
    for (const auto &[column, order, expected] : orders) {
        table.sort(column, order);
        EXPECT_EQ(shown(table), expected) << column;
    }
    table.setFilter({.titles = u"TOOL"_s, .onlyStale = true});
    EXPECT_EQ(shown(table), QStringList({u"Tool 10|1.10|1|✓ 1.10, listed|↑ 1.9|"_s,
                                         u"Tool 9|1.9|2|↓ 1.10||≠ 1,9, refused"_s}));
    table.setFilter({.titles = u"TOOL"_s, .sites = u"a"_s, .onlyStale = true});
    EXPECT_EQ(shown(table), QStringList(u"Tool 9|1.9|2|↓ 1.10"_s)) << "the other is current there";
    EXPECT_EQ(table.siteAt(MatrixTable::FirstSite), u"A");
    EXPECT_EQ(table.staleCount(), 1);
}
