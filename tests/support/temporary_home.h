#pragma once

#include "platform/settings.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "support/testing.h"

#include <QTemporaryDir>

namespace quillon {

/// A test with a home folder of its own, in which nothing is stored, selected or failed yet.
class TemporaryHome : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_home.isValid());
        setDataFolder(m_home.path());
        resetState();
    }
    void TearDown() override
    {
        resetState();
        // What is not stored now would be when the program ends, into the folder that is gone by then.
        settings().sync();
    }

    [[nodiscard]] QString home() const { return m_home.path(); }

    /// The path of @p name in the data folder.
    [[nodiscard]] static QString inData(const QString &name)
    {
        QString path = mwqnAppSuppLoc + name;
        return path;
    }

private:
    static void resetState()
    {
        clearSelectedTitle();
        mwqnWOSi78tgsda = true;
        mwqnSCPreallSitesDict.clear();
        mwqnFailedWrites.clear();
        mwqnFailedExtras.clear();
    }

    QTemporaryDir m_home;
};

/// The same with a data folder, in which there is no title yet.
class TemporaryDataFolder : public TemporaryHome
{
protected:
    void SetUp() override
    {
        TemporaryHome::SetUp();
        ASSERT_TRUE(AddDeleteImportEdit::checkAppSuppExists());
    }
};

} // namespace quillon
