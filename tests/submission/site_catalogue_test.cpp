#include "platform/property_list.h"
#include "store/site_list.h"
#include "submission/data_folder_fixture.h"
#include "submission/site_catalogue.h"

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
            << site.name.toUtf8().toStdString();
        EXPECT_FALSE(site.name.contains(u',') || site.name.contains(u'<') || site.url.contains(u' '))
            << site.name.toUtf8().toStdString() << " could not be marked or loaded";
    }
    EXPECT_EQ(names.size(), 212);
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), 212);
    EXPECT_EQ(urls.size(), 211) << "only two sites share an address";
    EXPECT_EQ(defaults().at(u"NewFreeDownloads"_s), defaults().at(u"NFD"_s));
    EXPECT_EQ(names.first(), u"01-Download");
    EXPECT_EQ(names.last(), u"Z-Down");
    const QStringList stretch = names.mid(names.indexOf(u"aFreeGo"_s) - 1, 3);
    EXPECT_EQ(stretch, QStringList({u"Actual Download"_s, u"aFreeGo"_s, u"AllSoftShare"_s}));
    EXPECT_TRUE(names.contains(u"Dalonwod"_s) && names.contains(u"Mac OX X Apps"_s));
}

TEST(SiteCatalogue, WithoutChangesHasTheDefaultSitesAlphabetically)
{
    const SiteCatalogue catalogue = mergedCatalogue(defaults(), {}, {});
    EXPECT_EQ(catalogue.sites.size(), 212);
    EXPECT_EQ(catalogue.urlByName.size(), 212U);
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
    const std::tuple<const char *, QStringView, QStringView, QStringView> cases[] = {
        {"name and address of one site", u"Alpha=u:a", u"beta,Delta,Gamma", u"Alpha"},
        {"the name's, then the first of that address", u"Delta=u:same", u"Alpha,Gamma", u"Delta,beta"},
        {"two sites by one entry", u"Alpha=u:same", u"Delta,Gamma", u"Alpha,beta"},
        {"a stranger's address alone", u"Nobody=u:a", u"beta,Delta,Gamma", u"Alpha"},
        {"names are told apart by case", u"BETA=u:?", u"Alpha,beta,Delta,Gamma", u""},
        {"in the order of the names, each address once more",
         u"gamma2=u:same,beta=u:same,Zed=u:same,Zoo=u:same", u"Alpha", u"beta,Delta,Gamma"},
    };
    for (const auto &[why, ignored, sites, taken] : cases) {
        const SiteCatalogue catalogue = mergedCatalogue(few, siteList(ignored), {});
        EXPECT_EQ(catalogue.sites.join(u','), sites) << why;
        EXPECT_EQ(catalogue.ignored.join(u','), taken) << why;
        for (qsizetype row = 0; row < catalogue.ignored.size(); ++row) {
            EXPECT_EQ(catalogue.ignoredUrls.value(row), few.at(catalogue.ignored[row])) << why;
            EXPECT_FALSE(catalogue.urlByName.contains(catalogue.ignored[row])) << why;
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
    EXPECT_EQ(catalogue.urlByName.size(), 214U);
}

TEST(SiteStates, CompareTheVersionOfTheFirstMarkWithTheCurrentOne)
{
    // The mark's version and the current one, which makes the mark as named.
    const std::pair<SiteState, QString> cases[] = {
        {SiteState::Validated, u"1.9/1.9|1.9/1.10|2.0/2.0.1|2,9/1|1.5/1,9|Unknown/beta| 3/2|.6/0.5|+2/1|"_s +
                                   QString(500, u'9') + u"/7"_s},
        {SiteState::OldVers,
         u"1.10/1.9|1.5/|1.5/,9|Unknown/0.1|/1|v3/2|1e9/2|infinite/2|nan/1|-1/0|1 000/2"_s}};
    Summary summary;
    for (const auto &[state, pairs] : cases) {
        for (const QString &pair : pairs.split(u'|')) {
            summary.sites = u"Site"_s;
            summary.versions = pair.section(u'/', 0, 0);
            summary.version = pair.section(u'/', 1);
            EXPECT_EQ(siteStates({u"Site"_s, u"site"_s}, summary), QList({state, SiteState::NotValidated}))
                << pair.toStdString();
        }
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
