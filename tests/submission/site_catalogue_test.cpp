#include "platform/property_list.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "submission/site_catalogue.h"
#include "support/faults.h"
#include "support/tables.h"

#include <QSet>

namespace {

StringDictionary defaults()
{
    setDefaultSites();
    return mwqnDefaultSitesDict;
}

} // namespace

TEST(DefaultSites, AreAllThereOnceInTheirOrderAndSubmittable)
{
    QStringList names;
    QSet<QString> urls;
    for (const DefaultSite &site : defaultSites) {
        names.append(site.name.toString());
        urls.insert(site.url.toString());
        EXPECT_TRUE(site.url.startsWith(u"http://") || site.url.startsWith(u"https://"))
            << site.name.toString();
        EXPECT_FALSE(site.name.contains(u',') || site.name.contains(u'<') || site.url.contains(u' '))
            << site.name.toString() << " could not be marked or loaded";
    }
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(urls.size(), names.size() - 1) << "only two sites share an address";
    EXPECT_EQ(defaults().at(u"NewFreeDownloads"_s), defaults().at(u"NFD"_s));
    EXPECT_TRUE(std::ranges::is_sorted(names, CaseInsensitiveOrder()));
    EXPECT_TRUE(names.contains(u"Dalonwod"_s) && names.contains(u"Mac OX X Apps"_s)) << "a key of marks";
}

TEST(SiteCatalogue, WithoutChangesHasTheDefaultSitesAlphabetically)
{
    const SiteCatalogue catalogue = mergedCatalogue(defaults(), {}, {});
    EXPECT_EQ(size_t(catalogue.sites.size()), defaultSites.size());
    EXPECT_EQ(catalogue.urlByName.size(), defaultSites.size());
    EXPECT_TRUE(catalogue.ignored.isEmpty());
    for (qsizetype row = 1; row < catalogue.sites.size(); ++row)
        EXPECT_LT(catalogue.sites[row - 1].compare(catalogue.sites[row], Qt::CaseInsensitive), 0);
    for (qsizetype row = 0; row < catalogue.sites.size(); ++row)
        EXPECT_EQ(catalogue.urls[row], defaults().at(catalogue.sites[row]));
    const auto at = catalogue.sites.indexOf(u"doDownload"_s);
    EXPECT_EQ(catalogue.sites[at - 1], u"Do Download");
    EXPECT_EQ(catalogue.sites[at + 1], u"Download 3000");
}

TEST(SiteCatalogue, IgnoredEntriesTakeOutDefaultSitesByNameAndByAddress)
{
    const StringDictionary few = siteList(u"Alpha=u:a,beta=u:same,Gamma=u:same,Delta=u:same");
    for (const QStringList &row : table(u"sites_ignored"_s)) {
        const SiteCatalogue catalogue = mergedCatalogue(few, siteList(row[1]), {});
        EXPECT_EQ(catalogue.sites.join(u','), row[2]) << row[0];
        EXPECT_EQ(catalogue.ignored.join(u','), row[3]) << row[0];
        for (qsizetype at = 0; at < catalogue.ignored.size(); ++at) {
            EXPECT_EQ(catalogue.ignoredUrls.value(at), few.at(catalogue.ignored[at])) << row[0];
            EXPECT_FALSE(catalogue.urlByName.contains(catalogue.ignored[at])) << row[0];
        }
    }
}

TEST(SiteCatalogue, OwnSitesComeFirstAndYieldToADefaultSiteOfTheirName)
{
    const SiteCatalogue catalogue = mergedCatalogue(
        defaults(), {}, {{u"Zeta"_s, u"u:z"_s}, {u"alpha"_s, u"u:a"_s}, {u"Softs"_s, u"u:own"_s}});
    EXPECT_EQ(catalogue.sites.first(3), QStringList({u"alpha"_s, u"Softs"_s, u"Zeta"_s}));
    EXPECT_EQ(catalogue.urls.first(3), QStringList({u"u:a"_s, u"u:own"_s, u"u:z"_s}));
    EXPECT_EQ(catalogue.sites.count(u"Softs"_s), 2);
    EXPECT_EQ(catalogue.urlByName.at(u"Softs"_s), defaults().at(u"Softs"_s));
    EXPECT_EQ(catalogue.urlByName.at(u"Zeta"_s), u"u:z");
    EXPECT_EQ(catalogue.urlByName.size(), defaultSites.size() + 2);
}

TEST(SiteStates, CompareTheVersionOfTheFirstMarkWithTheCurrentOne)
{
    Summary summary;
    summary.sites = u"Site"_s;
    for (const QStringList &row : table(u"marks_judged"_s)) {
        summary.versions = row[0];
        summary.version = row[1];
        const SiteState state = row[2] == u"Validated" ? SiteState::Validated : SiteState::OldVers;
        EXPECT_EQ(siteStates({u"Site"_s, u"site"_s}, summary), QList({state, SiteState::NotValidated}))
            << row[0];
    }
    summary.sites = u"B,A,B,C"_s;
    summary.versions = u"2,1"_s; // A version that is missing is an empty one.
    summary.version = u"2"_s;
    EXPECT_EQ(siteStates({u"A"_s, u"B"_s, u"C"_s}, summary),
              QList({SiteState::OldVers, SiteState::Validated, SiteState::OldVers}));
    EXPECT_EQ(siteStates({u"A"_s}, Summary()), QList({SiteState::NotValidated}));
}

using SiteListFiles = DataFolderTest;

TEST_F(SiteListFiles, AMissingOneIsMadeEmptyAndABrokenOneIsNone)
{
    const QString path = mwqnAppSuppLoc + u"ignore.qnrc";
    QFile::remove(path);
    EXPECT_EQ(AddDeleteImportEdit::returnIgnoredSitesDict(), StringDictionary());
    EXPECT_EQ(contentOf(path), QString::fromUtf8(property_list::emptyText()));

    writeTo(path, u"<plist><array/></plist>"_s);
    EXPECT_TRUE(AddDeleteImportEdit::returnIgnoredSitesDict().isError(Error::Kind::Unintelligible));
    EXPECT_EQ(contentOf(path), u"<plist><array/></plist>");
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), StringDictionary());
}

TEST_F(SiteListFiles, AMissingOneThatCannotBeMadeIsAnError)
{
    const QString path = mwqnAppSuppLoc + u"ignore.qnrc";
    const struct
    {
        const char *rule;
        bool isMade;
        Error::Kind told;
    } cases[] = {{"create=EACCES", false, Error::Kind::NotDone},
                 {"fsync@2=EIO", true, Error::Kind::NotYetSafe},
                 {"open=EIO", true, Error::Kind::Unreadable}};
    for (const auto &[rule, isMade, told] : cases) {
        if (told != Error::Kind::Unreadable)
            QFile::remove(path);
        const FaultPlan plan(mwqnAppSuppLoc, rule);
        const auto list = site_list::readToChange(site_list::ignoredSites);
        EXPECT_TRUE(plan.met());
        EXPECT_EQ(bool(list), told == Error::Kind::NotYetSafe) << rule;
        EXPECT_TRUE(!list || (list->sites.empty() && list->bytes == property_list::emptyText())) << rule;
        EXPECT_EQ(mwqnFailedWrites.value(path).kind, told) << rule;
        EXPECT_EQ(QFile::exists(path), isMade) << rule;
    }
}

TEST_F(SiteListFiles, OneThatCouldNotBeReadAgainIsRefused)
{
    const StringDictionary sites = {{u"A"_s, u"http://a"_s}};
    ASSERT_TRUE(site_list::write(site_list::userSites, sites));
    for (const QString &url : {QString(u'&').repeated(60'000), QString(property_list::maxSize, u'u')})
        EXPECT_TRUE(site_list::write(site_list::userSites, {{u"A"_s, url}}).isError(Error::Kind::Refused));
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), sites);
}

TEST_F(SiteListFiles, WhatCannotBeUnderstoodIsKeptBesideBeforeItIsReplaced)
{
    const StringDictionary sites = {{u"A & <B>"_s, u"http://a/?x=1&y"_s}, {u"a & <b>"_s, u"http://b"_s}};
    const QString path = mwqnAppSuppLoc + u"sites.qnrc";
    EXPECT_TRUE(site_list::write(site_list::userSites, sites));
    EXPECT_FALSE(QFileInfo::exists(path + u".unreadable")) << "nothing was lost, so nothing is kept";
    EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), sites);

    for (const QString &damage : {u"half a li"_s, u"another"_s, u"half a li"_s}) {
        writeTo(path, damage);
        EXPECT_TRUE(site_list::write(site_list::userSites, sites));
        EXPECT_EQ(AddDeleteImportEdit::returnUserSitesDict(), sites);
    }
    EXPECT_EQ(contentOf(path + u".unreadable"), u"half a li");
    EXPECT_EQ(contentOf(path + u".unreadable-2"), u"another");
    EXPECT_FALSE(QFileInfo::exists(path + u".unreadable-3"));
}
