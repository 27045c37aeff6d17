#include "sites/site_editing.h"
#include "sites/site_renaming.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

class SiteEditing : public DataFolderTest
{
protected:
    static StringDictionary user() { return *AddDeleteImportEdit::returnUserSitesDict(); }
    static StringDictionary ignored() { return *AddDeleteImportEdit::returnIgnoredSitesDict(); }
    static void storeLists(const StringDictionary &user, const StringDictionary &ignored)
    {
        ASSERT_TRUE(site_list::write(site_list::userSites, user));
        ASSERT_TRUE(site_list::write(site_list::ignoredSites, ignored));
    }
    static QString defaultUrl(const QString &name) { return mwqnDefaultSitesDict.at(name); }
};

} // namespace

TEST(SiteAddresses, GetASchemeAndNoBlanks)
{
    const std::pair<QString, QString> cases[] = {
        {u"my site/submit"_s, u"http://my%20site/submit"_s},
        {u""_s, u"http://"_s},
        {u"https://a/"_s, u"https://a/"_s},
        {u"ftp:"_s, u"ftp:"_s},
        {u"a.b/c:d"_s, u"http://a.b/c:d"_s},
        {u"1x:y"_s, u"http://1x:y"_s},
        {u" http://a"_s, u"http://%20http://a"_s},
        {u"ünï.de"_s, u"http://ünï.de"_s},
    };
    for (const auto &[typed, normalised] : cases) {
        EXPECT_EQ(site_editing::normalisedUrl(typed), normalised);
        EXPECT_EQ(site_editing::normalisedUrl(normalised), normalised) << "nothing is added twice";
    }
}

TEST_F(SiteEditing, ANewSiteMustBeNewByNameAndByAddress)
{
    storeLists({{u"Mine"_s, u"http://mine/"_s}}, {{u"Softs"_s, defaultUrl(u"Softs"_s)}});
    struct Case
    {
        QString name;
        QString url;
        SiteEdit::Outcome outcome;
        QString sentence;
    };
    const QString empty = u"You must enter a name and URL to add an entry to the sites list"_s;
    const Case refused[] = {
        {u""_s, u"http://a/"_s, SiteEdit::Empty, empty},
        {u"   "_s, u"http://a/"_s, SiteEdit::Empty, empty},
        {u"A"_s, u""_s, SiteEdit::Empty, empty},
        {u"A"_s, u"https://"_s, SiteEdit::Empty, empty},
        {u" Mine "_s, u"http://a/"_s, SiteEdit::NameExists,
         u"The site name already exists\nPlease enter a unique name for this site"_s},
        {u"A"_s, u"mine/"_s, SiteEdit::UrlExists,
         u"The entered URL is already associated with the site 'Mine'\nPlease enter a unique URL for this site"_s},
        {u"Simtel"_s, u"http://mine/"_s, SiteEdit::BothExist,
         u"The site name and URL you entered both exist\nPlease enter a unique name and URL"_s},
    };
    for (const Case &each : refused) {
        const SiteEdit edit = site_editing::addSite(each.name, each.url);
        EXPECT_EQ(edit.outcome, each.outcome) << each.name.toStdString();
        EXPECT_EQ(edit.sentence, each.sentence);
        EXPECT_EQ(user().size(), 1U);
    }

    for (const auto &[name, url] :
         {std::pair(u" mine"_s, u"my site/submit"_s), std::pair(u"Softs"_s, u"http://s"_s),
          std::pair(u"New"_s, defaultUrl(u"Softs"_s))})
        EXPECT_EQ(site_editing::addSite(name, url).sentence, u"Site Added Successfully")
            << name.toStdString();
    EXPECT_EQ(user(), (StringDictionary{{u"Mine"_s, u"http://mine/"_s},
                                        {u"mine"_s, u"http://my%20site/submit"_s},
                                        {u"New"_s, defaultUrl(u"Softs"_s)},
                                        {u"Softs"_s, u"http://s"_s}}));
}

TEST_F(SiteEditing, AnEditMovesASiteBetweenTheDefaultOnesAndTheAuthorsOwn)
{
    const QString softs = defaultUrl(u"Softs"_s);
    const QString simtel = defaultUrl(u"Simtel"_s);
    struct Case
    {
        const char *why;
        StringDictionary user, ignored;
        Site old;
        Site edited;
        StringDictionary userAfter, ignoredAfter;
    };
    const Case cases[] = {
        {"a default site gets another address",
         {},
         {},
         {u"Softs"_s, softs},
         {u"Softs"_s, u"http://x"_s},
         {{u"Softs"_s, u"http://x"_s}},
         {{u"Softs"_s, softs}}},
        {"a default site gets another name",
         {},
         {},
         {u"Softs"_s, softs},
         {u"Softies"_s, softs},
         {{u"Softies"_s, softs}},
         {{u"Softs"_s, softs}}},
        {"a default site is saved unchanged", {}, {}, {u"Softs"_s, softs}, {u"Softs"_s, softs}, {}, {}},
        {"a default site becomes another one that was replaced",
         {{u"Simtel"_s, u"http://x"_s}},
         {{u"Simtel"_s, simtel}},
         {u"Softs"_s, softs},
         {u"Simtel"_s, simtel},
         {},
         {}},
        {"an own site changes both",
         {{u"A"_s, u"http://a"_s}, {u"C"_s, u"http://c"_s}},
         {{u"Softs"_s, softs}},
         {u"A"_s, u"http://a"_s},
         {u" B "_s, u"b x"_s},
         {{u"B"_s, u"http://b%20x"_s}, {u"C"_s, u"http://c"_s}},
         {{u"Softs"_s, softs}}},
        {"an own site takes the name of another",
         {{u"A"_s, u"http://a"_s}, {u"C"_s, u"http://c"_s}},
         {},
         {u"A"_s, u"http://a"_s},
         {u"C"_s, u"http://a"_s},
         {{u"C"_s, u"http://a"_s}},
         {}},
        {"an edited copy goes back to the default",
         {{u"Softs"_s, u"http://x"_s}},
         {{u"Softs"_s, softs}},
         {u"Softs"_s, u"http://x"_s},
         {u"Softs"_s, softs},
         {},
         {}},
        {"a renamed copy goes back to the default",
         {{u"Softies"_s, softs}},
         {{u"Softs"_s, softs}},
         {u"Softies"_s, softs},
         {u"Softs"_s, softs},
         {},
         {}},
        {"an edited copy is edited again",
         {{u"Softs"_s, u"http://x"_s}},
         {{u"Softs"_s, softs}},
         {u"Softs"_s, u"http://x"_s},
         {u"Softies"_s, u"http://y"_s},
         {{u"Softies"_s, u"http://y"_s}},
         {{u"Softs"_s, softs}}},
        {"a default name with another default's address counts as the default",
         {{u"A"_s, u"http://a"_s}},
         {},
         {u"A"_s, u"http://a"_s},
         {u"Softs"_s, simtel},
         {},
         {}},
    };
    for (const Case &each : cases) {
        storeLists(each.user, each.ignored);
        const SiteEdit edit = site_editing::editSite(each.old, each.edited.name, each.edited.url);
        EXPECT_EQ(edit.sentence, u"Site edited successfully") << each.why;
        EXPECT_EQ(user(), each.userAfter) << each.why;
        EXPECT_EQ(ignored(), each.ignoredAfter) << each.why;
    }
    for (const Site &nothing :
         {Site{u""_s, u"http://a"_s}, Site{u"  "_s, u"http://a"_s}, Site{u"A"_s, u""_s}}) {
        storeLists({{u"A"_s, u"http://a"_s}}, {});
        const SiteEdit edit = site_editing::editSite({u"A"_s, u"http://a"_s}, nothing.name, nothing.url);
        EXPECT_EQ(edit.outcome, SiteEdit::Empty);
        EXPECT_EQ(edit.sentence, u"The name and URL fields cannot be empty");
        EXPECT_EQ(user().size(), 1U);
    }
}

TEST_F(SiteEditing, RemovedDefaultSitesCanBeRestoredAndOwnOnesAreGone)
{
    const QString softs = defaultUrl(u"Softs"_s);
    storeLists({{u"Mine"_s, u"http://mine"_s}, {u"Simtel"_s, u"http://own"_s}},
               {{u"Simtel"_s, defaultUrl(u"Simtel"_s)}});
    EXPECT_TRUE(site_editing::removeSites({u"Mine"_s, u"Softs"_s, u"Simtel"_s, u"Unknown"_s}));
    EXPECT_EQ(user(), StringDictionary());
    EXPECT_EQ(ignored(), (StringDictionary{{u"Simtel"_s, defaultUrl(u"Simtel"_s)}, {u"Softs"_s, softs}}))
        << "the default site behind an edited copy stays hidden";
    EXPECT_TRUE(site_editing::restoreSites({u"Softs"_s, u"Unknown"_s}));
    EXPECT_TRUE(site_editing::currentCatalogue().sites.contains(u"Softs"_s));
    EXPECT_FALSE(site_editing::currentCatalogue().sites.contains(u"Simtel"_s));

    // An own site that shares the name of a default one on show stays when that one goes; then it goes too.
    storeLists({{u"Softs"_s, u"http://own"_s}}, {});
    EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_EQ(site_editing::currentCatalogue().urlByName.at(u"Softs"_s), u"http://own");
    storeLists({{u"Softs"_s, softs}}, {});
    for (int time = 0; time < 2; ++time)
        EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_FALSE(site_editing::currentCatalogue().sites.contains(u"Softs"_s));
}

TEST_F(SiteEditing, AListThatCannotBeStoredIsNoSuccess)
{
    QFile::remove(mwqnAppSuppLoc + u"sites.qnrc");
    ASSERT_TRUE(QDir().mkdir(mwqnAppSuppLoc + u"sites.qnrc"));
    EXPECT_EQ(site_editing::addSite(u"A"_s, u"http://a"_s).outcome, SiteEdit::NotStored);
    const Site softs{u"Softs"_s, defaultUrl(u"Softs"_s)};
    EXPECT_EQ(site_editing::editSite(softs, u"Softs"_s, u"http://x"_s).outcome, SiteEdit::NotStored);
    EXPECT_EQ(ignored(), StringDictionary()) << "the default site is not hidden without its copy";
    EXPECT_FALSE(mwqnFailedWrites.isEmpty());
}

TEST(MarkRenaming, ReplacesTheNameBesideCommasInTheWholeText)
{
    const auto text = [](const QString &sites, const QString &systems = {}) -> QString {
        return u"<OTS_OPERATING_SYSTEMS>"_s + systems + u"</OTS_OPERATING_SYSTEMS>\n<QN_SITES>"_s + sites +
               u"</QN_SITES>"_s;
    };
    struct Case
    {
        QString from;
        QString to;
        QString before;
        QString after;
    };
    const Case cases[] = {
        {u"A"_s, u"N"_s, text(u"A,B"_s), text(u"N,B"_s)},
        {u"B"_s, u"N"_s, text(u"A,B,C"_s), text(u"A,N,C"_s)},
        {u"C"_s, u"N"_s, text(u"A,C"_s), text(u"A,N"_s)},
        {u"A"_s, u"N"_s, text(u"A"_s), text(u"A"_s)},
        {u"A"_s, u"N"_s, text(u"A,"_s), text(u"N,"_s)},
        {u"A"_s, u"N"_s, text(u"B,AA"_s, u"A,B"_s), text(u"B,AA"_s, u"A,B"_s)},
        {u"A"_s, u"N"_s, text(u"A,B"_s, u"B,A"_s), text(u"N,B"_s, u"B,N"_s)},
        {u"A.eu"_s, u"N"_s, text(u"A.eu,Axeu,B"_s), text(u"N,N,B"_s)},
        {u"A(B"_s, u"N"_s, text(u"A(B,C"_s), text(u"A(B,C"_s)},
        {u"A"_s, u"N$1"_s, text(u"A,B"_s), text(u"N,B"_s)},
        {u"A & B"_s, u"N"_s, text(u"A & B,C"_s), text(u"N,C"_s)},
    };
    for (const Case &each : cases)
        EXPECT_EQ(withRenamedMark(each.before, each.from, each.to), each.after) << each.before.toStdString();
}

TEST_F(SiteEditing, RenamingReachesEveryTitleOnDisk)
{
    storeLists({{u"Mine"_s, u"http://mine"_s}}, {});
    makeTitle(u"One"_s, u"Mine,B"_s, u"1,2"_s);
    makeTitle(u".Two"_s, u"B,Mine"_s, u"1,2"_s);
    makeTitle(u"Three"_s, u"B,C"_s, u"1,2"_s);
    ASSERT_TRUE(QDir().mkdir(*title_folder::path(u"Empty")));
    const auto sitesOf = [](const QString &title) {
        return summary_file::parse(contentOf(pathIn(title, title_folder::summaryFile)).toUtf8()).sites;
    };
    site_editing::editSite({u"Mine"_s, u"http://mine"_s}, u"Mine"_s, u"http://other"_s);
    EXPECT_EQ(sitesOf(u"One"_s), u"Mine,B"_s);
    site_editing::editSite({u"Mine"_s, u"http://other"_s}, u"Yours"_s, u"http://other"_s);
    EXPECT_EQ(sitesOf(u"One"_s), u"Yours,B"_s);
    EXPECT_EQ(sitesOf(u".Two"_s), u"B,Yours"_s);
    EXPECT_EQ(sitesOf(u"Three"_s), u"B,C"_s);
}

TEST_F(SiteEditing, PicturesFollowTheirSite)
{
    const QString images = mwqnAppSuppLoc + u"Site Images/";
    const QString resources = home() + u"/resources/"_s;
    ASSERT_TRUE(QDir().mkpath(images) && QDir().mkpath(resources));
    const auto put = [](const QString &path, const QString &content) { writeTo(path + u".png", content); };
    const auto content = [](const QString &path) { return contentOf(path + u".png"); };
    put(images + u"A", u"a"_s);
    put(images + u"Both", u"mine"_s);
    put(images + u"C", u"c"_s);
    put(resources + u"Both", u"theirs"_s);
    put(resources + u"Named", u"named"_s);

    renameSiteImage(u"A"_s, u"B"_s, resources);
    EXPECT_EQ(content(images + u"B"), u"a");
    renameSiteImage(u"Both"_s, u"N"_s, resources);
    EXPECT_EQ(content(images + u"N"), u"theirs");
    renameSiteImage(u"C"_s, u"Named"_s, resources);
    renameSiteImage(u"None"_s, u"B"_s, resources);
    renameSiteImage(u"B"_s, u"B"_s, resources);
    renameSiteImage(u"B"_s, u"../B"_s, resources);
    renameSiteImage(u"../resources/Named"_s, u"Stolen"_s, resources);
    EXPECT_EQ(QDir(images).entryList(QDir::Files), QStringList({u"B.png"_s, u"N.png"_s}));
    EXPECT_EQ(content(images + u"B"), u"a");
}

TEST_F(SiteEditing, PicturesAreRenamedWithTheSiteWhenThereIsATitle)
{
    const QString images = mwqnAppSuppLoc + u"Site Images/";
    ASSERT_TRUE(QDir().mkpath(images));
    writeTo(images + u"A.png", u"a"_s);
    renameSite(u"A"_s, u"B"_s);
    EXPECT_TRUE(QFileInfo::exists(images + u"A.png"));
    makeTitle(u"Any"_s);
    renameSite(u"A"_s, u"B"_s);
    EXPECT_EQ(contentOf(images + u"B.png"), u"a");
    EXPECT_FALSE(QFileInfo::exists(images + u"A.png"));
}
