#pragma once

#include "platform/atomic_file.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <ostream>

// So that a failed comparison shows the texts.
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace quillon {

/// A data folder of its own for each case, with its two empty site lists.
class DataFolderTest : public testing::Test
{
protected:
    DataFolderTest()
    {
        setDataFolder(m_home.path());
        AddDeleteImportEdit::checkAppSuppExists();
        setDefaultSites();
        clearSelectedTitle();
        mwqnSCPreallSitesDict.clear();
        mwqnFailedWrites.clear();
        mwqnWOSi78tgsda = true;
    }
    ~DataFolderTest() override { clearSelectedTitle(); }

    [[nodiscard]] QString home() const { return m_home.path(); }

    /// The file's text; null when there is none.
    static QString contentOf(const QString &path)
    {
        const auto bytes = atomic_file::read(path);
        return bytes ? QString::fromUtf8(*bytes) : QString();
    }

    static void writeTo(const QString &path, const QString &text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(text.toUtf8());
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

private:
    QTemporaryDir m_home;
};

} // namespace quillon
