#include "journal/journal.h"
#include "overview/title_deletion.h"
#include "platform/notifications.h"
#include "sites/deleted_titles.h"
#include "sites/site_editing.h"
#include "store/title_folder.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

using namespace Qt::StringLiterals;
using namespace quillon;

using DeletedTitlesTest = TemporaryDataFolder;

TEST_F(DeletedTitlesTest, AreRestoredToldOfAndForgotten)
{
    RecordingSheets sheets;
    DeletedTitles deleted(sheets);
    const PostedNotifications posted({notification::mwqnOvLSlst, notification::mwqnPClSiL432ds});
    const auto names = [&deleted] {
        QStringList all;
        for (int row = 0; row < deleted.rowCount(); ++row)
            all += deleted.index(row, DeletedTitles::Name).data().toString();
        return all;
    };
    deleted.open();
    EXPECT_EQ(names(), QStringList());
    ASSERT_EQ(site_editing::addSite(u"Site"_s, u"https://site/"_s).outcome, SiteEdit::Done);
    EXPECT_TRUE(site_editing::removeSites({u"Site"_s, u"Softpedia"_s}));
    for (const QString &name : {u"A"_s, u"B"_s}) {
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(name));
        EXPECT_TRUE(title_operations::deleteTitle(name));
    }
    ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"B"_s));
    deleted.open();
    ASSERT_EQ(names(), QStringList({u"B"_s, u"A"_s, u"Site"_s}));
    deleted.restore(0);
    EXPECT_TRUE(sheets.alerts.last().informativeText.startsWith(u"There is another title of this name."));
    for (const AlertAnswer answer : {AlertAnswer::Alternate, AlertAnswer::Default}) {
        deleted.forgetNow(0);
        EXPECT_EQ(names().size(), 3);
        sheets.answer(answer);
    }
    EXPECT_TRUE(posted.names.isEmpty());
    deleted.restore(1);
    deleted.restore(0);
    deleted.restore(0);
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(posted.names,
              QStringList({notification::mwqnPClSiL432ds.toString(), notification::mwqnOvLSlst.toString()}));
    EXPECT_TRUE(title_folder::exists(u"A"));
    Journal::ofDataFolder().close();
}
