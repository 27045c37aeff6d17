#pragma once

#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"
#include "support/temporary_home.h"

#include <QFileInfo>

namespace quillon {

/// The site list "name=address,name=address"; the name of a default site stands for its address as well.
inline StringDictionary siteList(QStringView text)
{
    StringDictionary sites;
    for (const QString &entry : text.toString().split(u',', Qt::SkipEmptyParts)) {
        const QString address = entry.section(u'=', -1);
        const auto site = mwqnDefaultSitesDict.find(address);
        sites[entry.section(u'=', 0, 0)] = site == mwqnDefaultSitesDict.end() ? address : site->second;
    }
    return sites;
}

/// A home folder with a data folder and its two empty site lists.
class DataFolderTest : public TemporaryDataFolder
{
protected:
    void SetUp() override
    {
        TemporaryDataFolder::SetUp();
        setDefaultSites();
    }

    static QString contentOf(const QString &path) { return QString::fromUtf8(contents(path)); }
    static void writeTo(const QString &path, const QString &text)
    {
        ASSERT_TRUE(put(path, text.toUtf8())) << path;
    }
    static QString pathIn(const QString &title, QStringView file)
    {
        return *title_folder::path(title) + u'/' + file;
    }

    /// Makes a title whose summary has these lists, and selects it.
    static void makeTitle(const QString &title, const QString &sites = {}, const QString &versions = {},
                          const QString &version = {})
    {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(title));
        Summary summary;
        summary.version = version;
        summary.sites = sites;
        summary.versions = versions;
        writeTo(pathIn(title, title_folder::summaryFile), summary_file::text(summary));
        selectTitle(title);
    }
};

} // namespace quillon
