#include "sites/site_editing.h"
#include "sites/site_renaming.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "submission/submission_marks.h"
#include "support/faults.h"
#include "support/tables.h"

#include <functional>

namespace {

class SiteEditing : public DataFolderTest
{
protected:
    static StringDictionary user() { return *AddDeleteImportEdit::returnUserSitesDict(); }
    static StringDictionary ignored() { return *AddDeleteImportEdit::returnIgnoredSitesDict(); }
    static void storeLists(QStringView user, QStringView ignored)
    {
        ASSERT_TRUE(site_list::write(site_list::userSites, siteList(user)));
        ASSERT_TRUE(site_list::write(site_list::ignoredSites, siteList(ignored)));
    }
    static void expectLists(QStringView expectedUser, QStringView expectedIgnored, const QString &why)
    {
        EXPECT_EQ(user(), siteList(expectedUser)) << why;
        EXPECT_EQ(ignored(), siteList(expectedIgnored)) << why;
    }
    static Site site(QStringView entry)
    {
        const auto [name, url] = *siteList(entry).begin();
        return {name, url};
    }
    static SiteEdit edit(QStringView old, QStringView edited)
    {
        return site_editing::editSite(site(old), site(edited).name, site(edited).url);
    }
};

} // namespace

TEST(SiteAddresses, GetASchemeAndNoBlanks)
{
    for (const QStringList &row : table(u"addresses_normalised"_s)) {
        EXPECT_EQ(site_editing::normalisedUrl(row[0]), row[1]);
        EXPECT_EQ(site_editing::normalisedUrl(row[1]), row[1]) << "nothing is added twice";
    }
}

TEST_F(SiteEditing, ANewSiteMustBeNewByNameAndByAddress)
{
    storeLists(u"Mine=http://mine/", u"Softs");
    for (const QStringList &row : table(u"sites_refused"_s)) {
        EXPECT_EQ(site_editing::addSite(row[0], row[1]).sentence, row[2]) << row[0];
        EXPECT_EQ(user().size(), 1U);
    }
    for (const Site &added : {Site{u" mine"_s, u"my site/submit"_s}, Site{u"Softs"_s, u"http://s"_s},
                              Site{u"New"_s, mwqnDefaultSitesDict.at(u"Softs"_s)}})
        EXPECT_EQ(site_editing::addSite(added.name, added.url).sentence, u"Site Added Successfully")
            << added.name;
    const QStringView all = u"Mine=http://mine/,mine=http://my%20site/submit,New=Softs,Softs=http://s";
    for (const QStringView edited : {u"\x1=http://mine/", u"Mine=http://\x1"})
        EXPECT_EQ(edit(u"Mine=http://mine/", edited).outcome, SiteEdit::NotXml);
    expectLists(all, u"Softs", u"what is hidden may be used again"_s);
}

TEST_F(SiteEditing, AnEditMovesASiteBetweenTheDefaultOnesAndTheAuthorsOwn)
{
    for (const QStringList &row : table(u"site_edits"_s)) {
        storeLists(row[1], row[2]);
        EXPECT_EQ(edit(row[3], row[4]).sentence, u"Site edited successfully") << row[0];
        expectLists(row[5], row[6], row[0]);
    }
    storeLists(u"A=http://a", {});
    for (const Site &nothing :
         {Site{u""_s, u"http://a"_s}, Site{u"  "_s, u"http://a"_s}, Site{u"A"_s, u""_s}})
        EXPECT_EQ(site_editing::editSite(site(u"A=http://a"), nothing.name, nothing.url).sentence,
                  u"The name and URL fields cannot be empty");
    expectLists(u"A=http://a", {}, u"nothing is no site"_s);
}

TEST_F(SiteEditing, RemovedDefaultSitesCanBeRestoredAndOwnOnesAreGone)
{
    const auto has = [](const QString &name) {
        return site_editing::currentCatalogue().sites.contains(name);
    };
    storeLists(u"Mine=http://mine,Simtel=http://own", u"Simtel");
    EXPECT_TRUE(site_editing::removeSites(words(u"Mine Softs Simtel Unknown"_s)));
    expectLists({}, u"Simtel,Softs", u"the default site behind an edited copy stays hidden"_s);
    EXPECT_TRUE(site_editing::restoreSites(words(u"Softs Unknown"_s)));
    EXPECT_TRUE(has(u"Softs"_s) && !has(u"Simtel"_s));

    // An own site that shares the name of a default one on show stays when that one goes; then it goes too.
    storeLists(u"Softs=http://own", {});
    EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_EQ(site_editing::currentCatalogue().urlByName.at(u"Softs"_s), u"http://own");
    storeLists(u"Softs", {});
    for (int time = 0; time < 2; ++time)
        EXPECT_TRUE(site_editing::removeSites({u"Softs"_s}));
    EXPECT_FALSE(has(u"Softs"_s));
    // So does one that is like a default site, whether that is hidden by its name or by its address.
    for (const QStringView hiding : {u"NFD", u"NewFreeDownloads"}) {
        storeLists(u"NFD", hiding);
        EXPECT_TRUE(site_editing::removeSites({u"NFD"_s}));
        expectLists({}, hiding, u"hidden"_s);
    }
}

TEST_F(SiteEditing, AListThatCannotBeStoredIsNoSuccess)
{
    const QString list = inData(u"sites.qnrc"_s);
    ASSERT_TRUE(QFile::remove(list) && QDir().mkdir(list));
    EXPECT_EQ(site_editing::addSite(u"A"_s, u"http://a"_s).outcome, SiteEdit::NotStored);
    EXPECT_EQ(edit(u"Softs", u"Softs=http://x").outcome, SiteEdit::NotStored);
    EXPECT_EQ(ignored(), StringDictionary()) << "the default site is not hidden without its copy";
    EXPECT_TRUE(mwqnFailedWrites.contains(list) && QFileInfo(list).isDir());
}

/// A list that cannot be read for a moment is not taken for an empty one, neither by what is decided nor by
/// what is written.
TEST_F(SiteEditing, AListThatCouldNotBeReadForAMomentIsNotReplaced)
{
    const struct
    {
        std::function<bool()> isDone;
        QStringView user, ignored; // When it is.
    } edits[] = {
        {[] { return site_editing::addSite(u"Mine"_s, u"http://other"_s).outcome == SiteEdit::NameExists; },
         u"Mine=http://mine", u"Simtel"},
        {[] { return site_editing::addSite(u"New"_s, u"http://new"_s).outcome == SiteEdit::Done; },
         u"Mine=http://mine,New=http://new", u"Simtel"},
        {[] { return edit(u"Softs", u"Softs=u:x").outcome == SiteEdit::Done; }, u"Mine=http://mine,Softs=u:x",
         u"Simtel,Softs"},
        {[] { return bool(site_editing::removeSites(words(u"Mine Softs"_s))); }, {}, u"Simtel,Softs"},
        {[] { return bool(site_editing::restoreSites({u"Simtel"_s})); }, u"Mine=http://mine", {}},
    };
    int failures = 0;
    for (const QByteArray &rule :
         {failing("open", 1), failing("open", 2), failing("read", 1), failing("read", 2)}) {
        for (const auto &edit : edits) {
            storeLists(u"Mine=http://mine", u"Simtel");
            std::optional<FaultPlan> plan(std::in_place, home(), rule);
            const bool isDone = edit.isDone();
            EXPECT_TRUE(isDone || plan->met());
            plan.reset();
            mwqnFailedWrites.clear();
            failures += isDone ? 0 : 1;
            const auto &[user, ignored] =
                isDone ? std::pair(edit.user, edit.ignored)
                       : std::pair(QStringView(u"Mine=http://mine"), QStringView(u"Simtel"));
            expectLists(user, ignored, QString::fromLatin1(rule));
        }
    }
    EXPECT_GE(failures, 16);
}

/// Stopped anywhere, an edit leaves no mark of an unknown site, and the same edit completes it.
TEST_F(SiteEditing, AnEditThatIsStoppedLosesNothingAndIsCompletedByARepetition)
{
    const QString pictures = inData(u"Site Images/"_s);
    const auto begin = [&] {
        storeLists(u"Mine=http://mine", {});
        makeTitle(u"One"_s, u"Mine,Softs"_s, u"1,2"_s);
        ASSERT_TRUE(QDir(pictures).removeRecursively() && QDir().mkpath(pictures));
        writeTo(pictures + u"Mine.png", u"picture"_s);
    };
    for (const QStringView old : {u"Mine=http://mine", u"Softs"}) {
        begin();
        ASSERT_EQ(edit(old, u"New=http://n").outcome, SiteEdit::Done);
        const QMap<QString, QByteArray> edited = tree(mwqnAppSuppLoc);
        QByteArray calls = "stat";
        for (int turn = 1; turn > 0; ++turn) {
            begin();
            const QByteArray rule = failing(calls, turn, "EIO").replace("=", "+=");
            std::optional<FaultPlan> plan(std::in_place, home(), rule);
            const bool isDone =
                edit(old, u"New=http://n").outcome == SiteEdit::Done && mwqnFailedWrites.isEmpty();
            if (!plan->met())
                turn = std::exchange(calls, "writing") == "stat" ? 0 : -1;
            plan.reset();
            EXPECT_TRUE(!isDone || tree(mwqnAppSuppLoc) == edited) << rule;
            mwqnFailedWrites.clear();
            for (const QString &site :
                 summary_file::parse(contents(pathIn(u"One"_s, title_folder::summaryFile))).siteList())
                EXPECT_TRUE(site_editing::currentCatalogue().sites.contains(site)) << rule;
            EXPECT_EQ(edit(old, u"New=http://n").outcome, SiteEdit::Done);
            AddDeleteImportEdit::removeUnfinished();
            EXPECT_TRUE(tree(mwqnAppSuppLoc) == edited) << rule;
        }
    }
}

/// A site's name that no mark can bear is refused before it damages the marks of others.
TEST_F(SiteEditing, ANameThatMarksCannotBearIsRefusedByMarksAndWhereMarksWouldGetIt)
{
    storeLists(u"Mine=http://mine,Free=http://free", {});
    makeTitle(u"One"_s, u"Mine,B"_s, u"1,2"_s);
    const QMap<QString, QByteArray> before = tree(mwqnAppSuppLoc);
    for (const QString &name :
         {u"a,b"_s, u"<b>"_s, u"A<!DOCTYPE n"_s, u"x<y z='"_s, u"<3"_s, u"3>"_s, u"\r"_s}) {
        EXPECT_TRUE(submission_marks::markSubmitted(name).isError(Error::Kind::Refused));
        EXPECT_EQ(site_editing::editSite(site(u"Mine=http://mine"), name, u"http://mine"_s).outcome,
                  SiteEdit::NotMarkable);
    }
    bool isMet = true;
    for (int call = 1; isMet; ++call) { // A mark that cannot be read for a moment is a mark all the same.
        const FaultPlan plan(mwqnAppSuppLoc, failing("open", call));
        EXPECT_NE(site_editing::editSite(site(u"Mine=http://mine"), u"a,b"_s, u"http://mine"_s).outcome,
                  SiteEdit::Done);
        isMet = plan.met();
    }
    EXPECT_EQ(tree(mwqnAppSuppLoc), before);
    EXPECT_EQ(site_editing::editSite(site(u"Free=http://free"), u"a,b"_s, u"http://free"_s).outcome,
              SiteEdit::Done);
    EXPECT_TRUE(submission_marks::removeMark(u"a,b"_s).isDone());
}

TEST_F(SiteEditing, RenamingReachesTheMarksOfEveryTitleBesideCommasInTheWholeText)
{
    for (const QStringList &row : table(u"marks_renamed"_s))
        EXPECT_EQ(withRenamedMark(row[2], row[0], row[1]), row[3]) << row[2];

    storeLists(u"Mine=http://mine", {});
    for (const auto &[title, sites] :
         {std::pair(u"\uFEFFOne"_s, u"Mine,B"_s), {u".Two"_s, u"B,Mine"_s}, {u"Three"_s, u"B,C"_s}})
        makeTitle(title, sites, u"1,2"_s);
    ASSERT_TRUE(QDir().mkdir(*title_folder::path(u"Empty")));
    const auto marks = [] {
        QStringList all;
        for (const QString &title : {u"\uFEFFOne"_s, u".Two"_s, u"Three"_s})
            all += *summary_file::parse(contents(pathIn(title, title_folder::summaryFile))).sites;
        return all.join(u'|');
    };
    edit(u"Mine=http://mine", u"Mine=http://other");
    EXPECT_EQ(marks(), u"Mine,B|B,Mine|B,C");
    edit(u"Mine=http://other", u"Yours=http://other");
    EXPECT_EQ(marks(), u"Yours,B|B,Yours|B,C");
}

TEST_F(SiteEditing, PicturesFollowTheirSite)
{
    const QString images = inData(u"Site Images/"_s);
    const QString resources = home() + u"/resources/";
    ASSERT_TRUE(QDir().mkpath(images) && QDir().mkpath(resources));
    for (const auto &[file, content] : {std::pair<QString, QByteArray>(images + u"A.png", "a"),
                                        {images + u"Both.png", "mine"},
                                        {images + u"C.png", "c"},
                                        {resources + u"Both.svg", "theirs"},
                                        {resources + u"Named.svg", "named"}})
        ASSERT_TRUE(put(file, content));
    for (const auto &[from, to] : {std::pair(u"A"_s, u"B"_s),
                                   {u"Both"_s, u"N"_s},
                                   {u"C"_s, u"Named"_s},
                                   {u"None"_s, u"B"_s},
                                   {u"B"_s, u"B"_s},
                                   {u"B"_s, u"../B"_s},
                                   {u"../resources/Named"_s, u"Stolen"_s}})
        EXPECT_TRUE(renameSiteImage(from, to, resources)) << from;
    EXPECT_EQ(tree(images), (QMap<QString, QByteArray>{{u"B.png"_s, "a"}, {u"N.png"_s, "theirs"}}));

    {
        const FaultPlan plan(images, "create=ENOSPC");
        EXPECT_FALSE(renameSiteImage(u"B"_s, u"Full"_s, resources));
        EXPECT_TRUE(QFile::exists(images + u"B.png")) << "the only copy";
    }
    {
        const FaultPlan plan(images, "fsync@3=EIO");
        EXPECT_TRUE(renameSiteImage(u"B"_s, u"New"_s, resources).isError(Error::Kind::NotYetSafe))
            << "the end of the old one";
    }
    EXPECT_TRUE(renameSiteImage(u"New"_s, u"B"_s, resources));
    EXPECT_TRUE(renameSite(u"B"_s, u"A"_s));
    EXPECT_TRUE(QFile::exists(images + u"B.png")) << "no title can have the site marked";
    makeTitle(u"Any"_s);
    EXPECT_TRUE(renameSite(u"B"_s, u"A"_s));
    EXPECT_EQ(tree(images), (QMap<QString, QByteArray>{{u"A.png"_s, "a"}, {u"N.png"_s, "theirs"}}));
}
