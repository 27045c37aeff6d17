#include "journal/journal.h"
#include "journal/site_knowledge.h"
#include "store/process_state.h"
#include "submission/data_folder_fixture.h"
#include "support/recorders.h"
#include "support/tables.h"
#include "visits/site_check.h"
#include "visits/title_check.h"

#include <QTranslator>

namespace quillon {

namespace {

/// Answers when the test says so.
class FakeVisitor final : public Visitor
{
public:
    void visit(const VisitRequest &request, Visited visited) override
    {
        asked.append(request.address);
        answer = std::move(visited);
    }
    void stop() override { answer = {}; }

    QStringList asked;
    Visited answer;
};

/// A visit that has found @p kind.
Visit found(const QString &reached, int status, const QString &kind)
{
    Visit visit{.reached = reached, .status = status, .contentType = u"text/html"_s};
    const QString what = kind.section(u' ', 0, 0);
    const QStringList sizes = kind.split(u' ').sliced(1);
    visit.isFile = what == u"file";
    if (visit.isFile && !sizes.isEmpty())
        visit.fileSize = sizes[0].toLongLong();
    if (what == u"picture")
        visit.pictureSize = QSize(sizes[0].toInt(), sizes[1].toInt());
    if (what == u"text")
        visit.text = kind.section(u' ', 1).toUtf8();
    return visit;
}

} // namespace

TEST(VisitVerdictTest, EveryAnswerHasItsMeaning)
{
    for (const QStringList &row : table(u"visit-verdicts"_s)) {
        const auto [verdict, detail] =
            judged(row[0], {.reached = row[1], .status = row[2].toInt(), .failure = row[3]});
        EXPECT_EQ(name(verdict), row[4]) << row.join(u'|');
        EXPECT_TRUE(detail.contains(row[5])) << row.join(u'|') << detail;
    }
}

TEST(TitleCheckTest, WhatIsThereIsComparedWithWhatTheTitleStates)
{
    const QStringList kinds = {u"page"_s, u"download"_s, u"picture"_s, u"icon"_s, u"pad"_s};
    const Stated stated{.pad = "<Program_Name>T</Program_Name><Program_Version>1</Program_Version>",
                        .size = 1234};
    for (const QStringList &row : table(u"online-findings"_s)) {
        const OnlineFinding finding =
            onlineFinding(Expected(kinds.indexOf(row[0])), stated, u"http://a.example/x"_s,
                          found(row[1], row[2].toInt(), row[3]));
        EXPECT_EQ(finding.result, row[4]) << row.join(u'|');
        EXPECT_TRUE(finding.detail.contains(row[5])) << row.join(u'|') << finding.detail;
    }
}

/// Says what it is asked for in brackets.
class Brackets final : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *, const char *text, const char *, int) const override
    {
        return u'[' + QString::fromUtf8(text) + u']';
    }
};

TEST(TitleCheckTest, WhatWasFoundIsToldInTheLanguageThatCameLater)
{
    int count = 0;
    const QCoreApplication application(count, nullptr);
    Brackets language;
    ASSERT_TRUE(QCoreApplication::installTranslator(&language));
    for (const QString &kind : {u"file 1"_s, u"file 2"_s, u"file"_s}) {
        const QString result = onlineFinding(Expected::Download, {.pad = {}, .size = 1},
                                             u"http://a.example/"_s, found(u"http://a.example/"_s, 200, kind))
                                   .result;
        EXPECT_TRUE(result.startsWith(u'[')) << kind << result;
    }
}

using SiteCheckTest = DataFolderTest;

TEST_F(SiteCheckTest, UsedSitesAreVisitedOneByOneAndWhatWasFoundIsKept)
{
    mwqnSCPreallSitesDict = {{u"A"_s, u"http://a.example/"_s},
                             {u"B"_s, u"http://b.example/"_s},
                             {u"C"_s, u"http://c.example/"_s},
                             {u"D"_s, u"https://find.example/?q=%22D%22%20software"_s},
                             {u"Unused"_s, u"http://unused.example/"_s}};
    makeTitle(u"Mine"_s, u"A,B,C,D,No more"_s, u"1,1,1,1,1"_s, u"1"_s);
    ManualCalls calls;
    auto visitor = std::make_unique<FakeVisitor>();
    FakeVisitor &visits = *visitor;
    SiteCheck check(*SiteCheck::usedSites(), std::move(visitor), calls);
    const auto results = [&check] {
        QStringList all;
        for (const OnlineCheck::Row &row : check.table())
            all.append(row.what + u' ' + row.result);
        return all.join(u", "_s);
    };
    EXPECT_EQ(results(), u"A , B , C , D cannot say") << "a search says nothing of a site";
    check.start();
    std::exchange(visits.answer, {})({.failure = u"net::ERR_NAME_NOT_RESOLVED"_s});
    calls.pass(OnlineCheck::pace - std::chrono::milliseconds(1));
    EXPECT_EQ(visits.asked, QStringList{u"http://a.example/"_s}) << "the pace is polite";
    calls.pass(std::chrono::milliseconds(1));
    EXPECT_EQ(results(), u"A cannot say, B , C , D cannot say") << "there may be no network";

    check.cancel();
    EXPECT_FALSE(visits.answer || check.isRunning());
    check.start();
    std::exchange(visits.answer, {})(found(u"http://127.0.0.1/"_s, 200, u"page"_s));
    EXPECT_EQ(results(), u"A cannot say, B moved, C , D cannot say") << "this computer needs no network";
    calls.pass(OnlineCheck::pace);
    std::exchange(visits.answer, {})(found(u"http://c.example/"_s, 429, u"page"_s));
    EXPECT_EQ(results(), u"A gone, B moved, C cannot say, D cannot say") << "there is one";
    calls.pass(OnlineCheck::pace);
    EXPECT_EQ(visits.asked.join(u' '),
              u"http://a.example/ http://b.example/ http://b.example/ http://c.example/");
    EXPECT_TRUE(check.isDone() && !check.isRunning());

    QStringList kept;
    ASSERT_TRUE(Journal::ofDataFolder().read([&kept](Database &database) -> Result<> {
        const auto sites = site_knowledge::all(database);
        for (const auto &site : *sites)
            kept.append(site.name + u' ' + site.found->verdict);
        return {};
    }));
    EXPECT_EQ(kept.join(u", "_s), u"A gone, B moved, C cannot-say");
}

} // namespace quillon
