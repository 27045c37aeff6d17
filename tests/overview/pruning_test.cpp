#include "editor/editor.h"
#include "overview/overview_fixture.h"
#include "store/site_list.h"
#include "support/growth.h"

using PruningTest = OverviewTest;

static void buildCatalogue()
{
    mwqnSCPreallSitesDict[u"Here"_s] = u"http://here"_s;
}

TEST_F(PruningTest, MarksOfSitesThatAreGoneArePruned)
{
    addTitle(u"T"_s, summaryText(u"1.1"_s, u"Gone,Here,Lost"_s, u"1,2,3"_s));
    const QByteArray before = contents(summaryOf(u"T"_s));
    select(u"T"_s);
    EXPECT_EQ(contents(summaryOf(u"T"_s)), before) << "without a catalogue nothing can be told to be gone";
    buildCatalogue();
    const QByteArray ownSites = contents(inData(u"sites.qnrc"_s));
    put(inData(u"sites.qnrc"_s), "<plist><dict><key>Lo");
    overview.updateOverviewDisplay();
    EXPECT_EQ(contents(summaryOf(u"T"_s)), before) << "nor without the author's own sites";
    put(inData(u"sites.qnrc"_s), ownSites);
    overview.updateOverviewDisplay();
    EXPECT_TRUE(contents(summaryOf(u"T"_s)).contains("<QN_SITES>Here</QN_SITES>"));
    EXPECT_TRUE(contents(summaryOf(u"T"_s)).contains("<QN_VERSION>2<QN_VERSION>"));
    EXPECT_EQ(marks(), u"Here 2, Older version");
    EXPECT_EQ(cell(0, SoftwareTable::Submissions, IconsRole), u"Here");
    EXPECT_EQ(loadSummary(u"T"_s)->versions, u"2"_s) << "the unclosed list reads as it was meant";
}

TEST_F(PruningTest, GoesOnUntilNoMarkIsLeftThatNobodyKnows)
{
    buildCatalogue(); // While the own sites could not be read.
    ASSERT_TRUE(site_list::write(site_list::userSites, {{u"Own"_s, u"http://own"_s}}));
    addTitle(u"T"_s, summaryText({}, u"Gone"_s, u"1,0"_s)); // One mark, at the version 1,0.
    Editor editor(sheets);
    editor.awakeFromNib();
    addTitle(u"U"_s, summaryText(u"1"_s, u"Own,Gone"_s, u"1,2"_s));
    select(u"T"_s);
    EXPECT_EQ(marks(), u"No Submissions , ");
    select(u"U"_s);
    EXPECT_EQ(*loadSummary(u"T"_s)->sites + *loadSummary(u"U"_s)->sites, u"Own");
}

TEST_F(PruningTest, TakesTimeInProportionToTheMarks)
{
    buildCatalogue();
    addTitle(u"T"_s, summaryText(u"1"_s));
    selectTitle(u"T"_s);
    const double growth = growthOfEightfold(3'000, [](qsizetype gone) {
        put(summaryOf(u"T"_s),
            summaryText(u"1"_s, u"Here"_s + u",x"_s.repeated(gone), u"1"_s + u",1"_s.repeated(gone)));
        EXPECT_TRUE(title_operations::pruneMarks());
    });
    EXPECT_LT(growth, tolerableGrowth);
}
