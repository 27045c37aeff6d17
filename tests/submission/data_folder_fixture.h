#pragma once

#include "store/add_delete_import_edit.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"
#include "support/temporary_home.h"

#include <QFileInfo>

namespace quillon {

/// A home folder with a data folder and its two empty site lists.
class DataFolderTest : public TemporaryHome
{
protected:
    void SetUp() override
    {
        TemporaryHome::SetUp();
        AddDeleteImportEdit::checkAppSuppExists();
        setDefaultSites();
    }

    static QString contentOf(const QString &path) { return QString::fromUtf8(contents(path)); }
    static void writeTo(const QString &path, const QString &text)
    {
        ASSERT_TRUE(put(path, text.toUtf8())) << path.toStdString();
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
