#include "sites/site_editing.h"
#include "sites/site_renaming.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "submission/submission_marks.h"
#include "support/faults.h"

#include <functional>

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
        QString name, url;
        SiteEdit::Outcome outcome;
    };
    const Case refused[] = {
        {u""_s, u"http://a/"_s, SiteEdit::Empty},
        {u"   "_s, u"http://a/"_s, SiteEdit::Empty},
        {u"A"_s, u""_s, SiteEdit::Empty},
        {u"A"_s, u"https://"_s, SiteEdit::Empty},
        {u" Mine "_s, u"http://a/"_s, SiteEdit::NameExists},
        {u"A"_s, u"mine/"_s, SiteEdit::UrlExists},
        {u"Simtel"_s, u"http://mine/"_s, SiteEdit::BothExist},
        {u"a\x1b[31m"_s, u"http://a/"_s, SiteEdit::NotXml},
        {u"A"_s, u"http://a/\x7"_s, SiteEdit::NotXml},
    };
    for (const Case &each : refused) {
        EXPECT_EQ(site_editing::addSite(each.name, each.url).outcome, each.outcome)
            << each.name.toStdString();
        EXPECT_EQ(user().size(), 1U);
    }

    for (const auto &[name, url] :
         {std::pair(u" mine"_s, u"my site/submit"_s), std::pair(u"Softs"_s, u"http://s"_s),
          std::pair(u"New"_s, defaultUrl(u"Softs"_s))})
        EXPECT_EQ(site_editing::addSite(name, url).sentence, u"Site Added Successfully");
    EXPECT_EQ(user(), siteList(u"Mine=http://mine/,mine=http://my%20site/submit,New=Softs,Softs=http://s"));
    EXPECT_EQ(site_editing::editSite({u"Mine"_s, u"http://mine/"_s}, u"\x1"_s, u"http://mine/"_s).outcome,
              SiteEdit::NotXml);
    EXPECT_EQ(user().size(), 4U);
}

TEST_F(SiteEditing, AnEditMovesASiteBetweenTheDefaultOnesAndTheAuthorsOwn)
{
    struct Case
    {
        const char *why;
        QStringView user, ignored, old, edited, userAfter, ignoredAfter;
    };
    const Case cases[] = {
        {"a default site gets another address", u"", u"", u"Softs", u"Softs=u:x", u"Softs=u:x", u"Softs"},
        {"a default site gets another name", u"", u"", u"Softs", u"B=Softs", u"B=Softs", u"Softs"},
        {"a default site is saved unchanged", u"", u"", u"Softs", u"Softs", u"", u""},
        {"a default site becomes a replaced one", u"Simtel=u:x", u"Simtel", u"Softs", u"Simtel", u"", u""},
        {"an own site changes both", u"A=u:a,C=u:c", u"Softs", u"A=u:a", u" B =b x", u"B=http://b%20x,C=u:c",
         u"Softs"},
        {"an own site takes another's name", u"A=u:a,C=u:c", u"", u"A=u:a", u"C=u:a", u"C=u:a", u""},
        {"an edited copy goes back", u"Softs=u:x", u"Softs", u"Softs=u:x", u"Softs", u"", u""},
        {"a renamed copy goes back", u"B=Softs", u"Softs", u"B=Softs", u"Softs", u"", u""},
        {"a copy is edited again", u"Softs=u:x", u"Softs", u"Softs=u:x", u"B=u:y", u"B=u:y", u"Softs"},
        {"an own site like a removed default one", u"Softs", u"Softs", u"Softs", u"B=u:b", u"B=u:b",
         u"Softs"},
        {"the same while another hides the default one", u"NFD", u"NewFreeDownloads", u"NFD", u"B=u:b",
         u"B=u:b", u"NewFreeDownloads"},
        {"a default site on show beside an own one like it", u"Softs", u"", u"Softs", u"B=u:b",
         u"B=u:b,Softs", u"Softs"},
        {"the default one stays hidden, so the own one stays", u"B=u:b", u"NewFreeDownloads", u"B=u:b",
         u"NFD", u"NFD", u"NewFreeDownloads"},
        {"a default name alone makes the default", u"A=u:a", u"", u"A=u:a", u"Softs=Simtel", u"", u""},
    };
    for (const Case &each : cases) {
        storeLists(siteList(each.user), siteList(each.ignored));
        const auto [oldName, oldUrl] = *siteList(each.old).begin();
        const auto [name, url] = *siteList(each.edited).begin();
        const SiteEdit edit = site_editing::editSite({oldName, oldUrl}, name, url);
        EXPECT_EQ(edit.sentence, u"Site edited successfully") << each.why;
        EXPECT_EQ(user(), siteList(each.userAfter)) << each.why;
        EXPECT_EQ(ignored(), siteList(each.ignoredAfter)) << each.why;
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
    storeLists(siteList(u"Mine=http://mine,Simtel=http://own"), siteList(u"Simtel"));
    EXPECT_TRUE(site_editing::removeSites({u"Mine"_s, u"Softs"_s, u"Simtel"_s, u"Unknown"_s}));
    EXPECT_EQ(user(), StringDictionary());
    EXPECT_EQ(ignored(), siteList(u"Simtel,Softs")) << "the default site behind an edited copy stays hidden";
    EXPECT_TRUE(site_editing::restoreSites({u"Softs"_s, u"Unknown"_s}));
    EXPECT_TRUE(site_editing::currentCatalogue().sites.contains(u"Softs"_s));
    EXPECT_FALSE(site_editing::currentCatalogue().sites.contains(u"Simtel"_s));

    // An own site that shares the name of a default one on show stays when that one goes; then it goes too.
    storeLists({{u"Softs"_s, u"http://own"_s}}, {});
    EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_EQ(site_editing::currentCatalogue().urlByName.at(u"Softs"_s), u"http://own");
    storeLists(siteList(u"Softs"), {});
    for (int time = 0; time < 2; ++time)
        EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_FALSE(site_editing::currentCatalogue().sites.contains(u"Softs"_s));

    // So does one that is like a default site, whether that is hidden by its name or by its address.
    for (const QStringView hiding : {u"NFD", u"NewFreeDownloads"}) {
        storeLists(siteList(u"NFD"), siteList(hiding));
        EXPECT_TRUE(site_editing::removeSites({u"NFD"_s}));
        EXPECT_EQ(user(), StringDictionary()) << hiding.toString().toStdString();
        EXPECT_EQ(ignored(), siteList(hiding));
    }
}

TEST_F(SiteEditing, AListThatCannotBeStoredIsNoSuccess)
{
    QFile::remove(mwqnAppSuppLoc + u"sites.qnrc");
    ASSERT_TRUE(QDir().mkdir(mwqnAppSuppLoc + u"sites.qnrc"));
    EXPECT_EQ(site_editing::addSite(u"A"_s, u"http://a"_s).outcome, SiteEdit::NotStored);
    const Site softs{u"Softs"_s, defaultUrl(u"Softs"_s)};
    EXPECT_EQ(site_editing::editSite(softs, u"Softs"_s, u"http://x"_s).outcome, SiteEdit::NotStored);
    EXPECT_EQ(ignored(), StringDictionary()) << "the default site is not hidden without its copy";
    EXPECT_TRUE(mwqnFailedWrites.contains(mwqnAppSuppLoc + u"sites.qnrc"));
    EXPECT_TRUE(QFileInfo(mwqnAppSuppLoc + u"sites.qnrc").isDir());
}

/// A list that cannot be read for a moment is not taken for an empty one, neither by what is decided nor by
/// what is written.
TEST_F(SiteEditing, AListThatCouldNotBeReadForAMomentIsNotReplaced)
{
    const Site mine{u"Mine"_s, u"http://mine"_s};
    const Site softs{u"Softs"_s, defaultUrl(u"Softs"_s)};
    const std::function<bool()> edits[] = {
        [&] { return site_editing::addSite(u"Mine"_s, u"http://other"_s).outcome == SiteEdit::NameExists; },
        [&] { return site_editing::addSite(u"New"_s, u"http://new"_s).outcome == SiteEdit::Done; },
        [&] { return site_editing::editSite(softs, u"Softs"_s, u"u:x"_s).outcome == SiteEdit::Done; },
        [&] {
            return bool(site_editing::removeSites({u"Mine"_s, u"Softs"_s}));
        },
        [&] { return bool(site_editing::restoreSites({u"Simtel"_s})); },
    };
    int failures = 0;
    for (const char *const call : {"open", "read"}) {
        for (int turn = 1; turn <= 2; ++turn) {
            for (const auto &edit : edits) {
                storeLists({{mine.name, mine.url}}, siteList(u"Simtel"));
                const QByteArray rule = call + ('@' + QByteArray::number(turn)) + "=EIO";
                std::optional<FaultPlan> plan(std::in_place, home(), rule);
                const bool isDone = edit();
                EXPECT_TRUE(isDone || plan->met());
                plan.reset();
                mwqnFailedWrites.clear();
                if (isDone)
                    continue;
                ++failures;
                EXPECT_EQ(user(), (StringDictionary{{mine.name, mine.url}})) << rule.constData();
                EXPECT_EQ(ignored(), siteList(u"Simtel")) << rule.constData();
            }
        }
    }
    EXPECT_GE(failures, 16);
}

/// Stopped anywhere, an edit leaves no mark of an unknown site, and the same edit completes it.
TEST_F(SiteEditing, AnEditThatIsStoppedLosesNothingAndIsCompletedByARepetition)
{
    const Site mine{u"Mine"_s, u"http://mine"_s};
    const QString pictures = mwqnAppSuppLoc + u"Site Images/";
    const auto begin = [&] {
        storeLists({{mine.name, mine.url}}, {});
        makeTitle(u"One"_s, u"Mine,Softs"_s, u"1,2"_s);
        ASSERT_TRUE(QDir(pictures).removeRecursively() && QDir().mkpath(pictures));
        writeTo(pictures + u"Mine.png", u"picture"_s);
    };
    for (const Site &old : {mine, Site{u"Softs"_s, defaultUrl(u"Softs"_s)}}) {
        begin();
        ASSERT_EQ(site_editing::editSite(old, u"New"_s, u"http://n"_s).outcome, SiteEdit::Done);
        const QMap<QString, QByteArray> edited = tree(mwqnAppSuppLoc);
        QByteArray calls = "stat@";
        for (int turn = 1; turn > 0; ++turn) {
            begin();
            const QByteArray call = calls + QByteArray::number(turn);
            std::optional<FaultPlan> plan(std::in_place, home(), call + "+=EIO");
            const SiteEdit edit = site_editing::editSite(old, u"New"_s, u"http://n"_s);
            if (!plan->met())
                turn = std::exchange(calls, "writing@") == "stat@" ? 0 : -1;
            plan.reset();
            if (edit.outcome == SiteEdit::Done && mwqnFailedWrites.isEmpty())
                EXPECT_TRUE(tree(mwqnAppSuppLoc) == edited) << call.constData();
            mwqnFailedWrites.clear();
            for (const QString &site :
                 summary_file::parse(contentOf(pathIn(u"One"_s, title_folder::summaryFile)).toUtf8())
                     .siteList())
                EXPECT_TRUE(site_editing::currentCatalogue().sites.contains(site)) << call.constData();
            EXPECT_EQ(site_editing::editSite(old, u"New"_s, u"http://n"_s).outcome, SiteEdit::Done);
            AddDeleteImportEdit::removeUnfinished();
            EXPECT_TRUE(tree(mwqnAppSuppLoc) == edited) << call.constData();
        }
    }
}

/// A site's name that no mark can bear is refused before it damages the marks of others.
TEST_F(SiteEditing, ANameThatMarksCannotBearIsRefusedByMarksAndWhereMarksWouldGetIt)
{
    storeLists({{u"Mine"_s, u"http://mine"_s}, {u"Free"_s, u"http://free"_s}}, {});
    makeTitle(u"One"_s, u"Mine,B"_s, u"1,2"_s);
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    for (const QString &name :
         {u"a,b"_s, u"<b>"_s, u"A<!DOCTYPE n"_s, u"x<y z='"_s, u"<3"_s, u"3>"_s, u"\r"_s}) {
        EXPECT_TRUE(submission_marks::markSubmitted(name).isError(Error::Kind::Refused));
        EXPECT_EQ(site_editing::editSite({u"Mine"_s, u"http://mine"_s}, name, u"http://mine"_s).outcome,
                  SiteEdit::NotMarkable);
    }
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
    EXPECT_EQ(site_editing::editSite({u"Free"_s, u"http://free"_s}, u"a,b"_s, u"http://free"_s).outcome,
              SiteEdit::Done);
    EXPECT_EQ(submission_marks::removeMark(u"a,b"_s).isDone(), true);
}

TEST(MarkRenaming, ReplacesTheNameBesideCommasInTheWholeText)
{
    const auto text = [](const QString &sites, const QString &systems = {}) -> QString {
        return u"<OTS_OPERATING_SYSTEMS>"_s + systems + u"</OTS_OPERATING_SYSTEMS>\n<QN_SITES>"_s + sites +
               u"</QN_SITES>"_s;
    };
    struct Case
    {
        QString from, to, before, after;
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
    const auto content = [](const QString &path) { return contentOf(path + u".png"); };
    writeTo(images + u"A.png", u"a"_s);
    writeTo(images + u"Both.png", u"mine"_s);
    writeTo(images + u"C.png", u"c"_s);
    writeTo(resources + u"Both.svg", u"theirs"_s);
    writeTo(resources + u"Named.svg", u"named"_s);

    EXPECT_TRUE(renameSiteImage(u"A"_s, u"B"_s, resources));
    EXPECT_EQ(content(images + u"B"), u"a");
    EXPECT_TRUE(renameSiteImage(u"Both"_s, u"N"_s, resources));
    EXPECT_EQ(content(images + u"N"), u"theirs");
    EXPECT_TRUE(renameSiteImage(u"C"_s, u"Named"_s, resources));
    EXPECT_TRUE(renameSiteImage(u"None"_s, u"B"_s, resources));
    EXPECT_TRUE(renameSiteImage(u"B"_s, u"B"_s, resources));
    EXPECT_TRUE(renameSiteImage(u"B"_s, u"../B"_s, resources));
    EXPECT_TRUE(renameSiteImage(u"../resources/Named"_s, u"Stolen"_s, resources));
    EXPECT_EQ(QDir(images).entryList(QDir::Files), QStringList({u"B.png"_s, u"N.png"_s}));
    EXPECT_EQ(content(images + u"B"), u"a");

    // Nobody renames the pictures of a site that no title can have marked.
    EXPECT_TRUE(renameSite(u"B"_s, u"A"_s));
    EXPECT_EQ(content(images + u"B"), u"a");
    makeTitle(u"Any"_s);
    EXPECT_TRUE(renameSite(u"B"_s, u"A"_s));
    EXPECT_EQ(content(images + u"A"), u"a");
    EXPECT_FALSE(QFileInfo::exists(images + u"B.png"));
}
