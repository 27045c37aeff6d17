#include "pad/pad_document.h"
#include "store/summary_file.h"
#include "support/tables.h"

TEST(SummaryFileTest, AnImportTakesWhatThePadFileSays)
{
    QList<QStringList> rows = table(u"summaries"_s);
    const QString old = QString::fromUtf8(sample(u"old_tool.xml"_s));
    rows.append({old, u"v3 {Build}"_s, u"27/Feb/2004"_s, u"Win98,WinME,\nWinXP"_s});
    for (const QStringList &row : std::as_const(rows)) {
        const QString text = summary_file::textForImport(PadDocument(QString(u"<r>" + row[0] + u"</r>")));
        const Summary read = summary_file::parse(text.toUtf8());
        EXPECT_EQ((QStringList{*read.version, *read.releaseDate, *read.operatingSystems}), row.sliced(1))
            << row[0];
        EXPECT_EQ(read.validated, u"0"_s);
    }
}

TEST(SummaryFileTest, TheEditorsFormHasNoDeclaration)
{
    const Summary summary{u"2 & 3"_s,   u"2009-03-15"_s, u"A,C"_s, u"<OTS_VALIDATED>1</OTS_VALIDATED>"_s,
                          u"One,Two"_s, u"1.0,2.0"_s};
    QByteArray expected = sample(u"empty_summary.qnxmld"_s);
    expected.remove(0, expected.indexOf('\n') + 1);
    expected.replace("_VERSION></OTS", "_VERSION>2 & 3</OTS").replace("_DATE></", "_DATE>2009-03-15</");
    expected.replace("_SYSTEMS></", "_SYSTEMS>A,C</").replace(">0<", "><OTS_VALIDATED>1</OTS_VALIDATED><");
    expected.replace("_SITES></", "_SITES>One,Two</").replace("_VERSION></QN", "_VERSION>1.0,2.0</QN");
    EXPECT_EQ(summary_file::text(summary).toUtf8(), expected);
    const Summary read = summary_file::parse(expected);
    EXPECT_EQ(read.version, summary.version);
    EXPECT_EQ(read.validated, u"1"_s);
    EXPECT_EQ(read.siteList(), (QStringList{u"One"_s, u"Two"_s}));
}

TEST(SummaryFileTest, AMissingOrBrokenFileHasNoElements)
{
    for (const QByteArray bytes : {"", "garbage", "<OTS_VERSION", "<ots_version>1</ots_version>"}) {
        const Summary summary = summary_file::parse(bytes);
        EXPECT_FALSE(summary.version || summary.validated || summary.sites) << bytes;
        EXPECT_EQ(summary.siteList(), QStringList{QString()});
    }
    EXPECT_EQ(summary_file::parse("<OTS_VERSION>1.0").version, u"1.0"_s);
    EXPECT_EQ(summary_file::parse("<QN_SITES>a,</QN_SITES>").siteList(), (QStringList{u"a"_s, u""_s}));
}

TEST(SummaryFileTest, ShortenedListsReadBackAlthoughOneIsLeftUnclosed)
{
    const QString before = summary_file::text({u"1"_s, {}, {}, u"0"_s, u"A,B,C"_s, u"1,2,3"_s});
    const struct
    {
        QStringList sites, versions;
        QString sitesText, versionsText;
    } cases[] = {
        {{u"A"_s, u"C"_s}, {u"1"_s, u"3"_s}, u"<QN_SITES>A,C</QN_SITES>"_s, u"<QN_VERSION>1,3<QN_VERSION>"_s},
        {{u"$1A & <"_s}, {u"1"_s}, u"<QN_SITES>A & <</QN_SITES>"_s, u"<QN_VERSION>1<QN_VERSION>"_s},
        {{}, {}, u"<QN_SITES>"_s, u"<QN_VERSION>"_s}};
    for (const auto &[sites, versions, sitesText, versionsText] : cases) {
        QString expected = before;
        expected.replace(u"<QN_SITES>A,B,C</QN_SITES>"_s, sitesText);
        expected.replace(u"<QN_VERSION>1,2,3</QN_VERSION>"_s, versionsText);
        EXPECT_EQ(summary_file::withSubmissions(before, sites, versions), expected);
        const Summary read = summary_file::parse(expected.toUtf8());
        EXPECT_EQ(read.version, u"1"_s);
        EXPECT_EQ(read.sites, QString(sites.join(u',').remove(u"$1"_s)));
        EXPECT_EQ(read.versions, QString(versions.join(u',')));
    }
    const QString broken = u"<QN_SITES>a\n</QN_SITES>"_s;
    EXPECT_EQ(summary_file::withSubmissions(broken, {}, {}), broken);
}
