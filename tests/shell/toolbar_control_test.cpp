#include "overview/overview_controller.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/toolbar_control.h"
#include "store/add_delete_import_edit.h"
#include "store/error_tracking.h"
#include "support/recorders.h"
#include "support/temporary_home.h"

class ToolbarControlTest : public TemporaryHome
{
protected:
    void SetUp() override
    {
        TemporaryHome::SetUp();
        QObject::connect(&toolbar, &ToolbarControl::showView,
                         [this](ContentView view) { shown.append(view); });
        QObject::connect(&toolbar, &ToolbarControl::focusField,
                         [this](FieldId field) { focused.append(field); });
        QObject::connect(&toolbar, &ToolbarControl::openSubmitWindow, [this] { ++submitWindows; });
        toolbar.awakeFromNib();
        ASSERT_TRUE(AddDeleteImportEdit::createNewListing(u"T"_s));
        overview.awakeFromNib();
        shown.clear();
    }
    [[nodiscard]] bool allMenuItemsAre(bool enabled)
    {
        return std::all_of(FileMenu::items.begin(), FileMenu::items.end(), [&](FileMenu::Item item) {
            return overview.fileMenu().isEnabled(item) == enabled;
        });
    }

    RecordingSheets sheets;
    OverviewController overview{sheets};
    ToolbarControl toolbar{overview, sheets};
    QList<ContentView> shown;
    QList<FieldId> focused;
    int submitWindows = 0;
};

TEST_F(ToolbarControlTest, WithoutTitleEditAndSubmitOnlyAsk)
{
    toolbar.editTBI();
    EXPECT_EQ(sheets.lastMessage(), u"Please select an item from the software list to edit it's PAD file"_s);
    toolbar.submitTBI();
    EXPECT_EQ(sheets.lastMessage(),
              u"Please select an item from the software list to begin making submissions"_s);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(submitWindows, 0);
    EXPECT_TRUE(overview.fileMenu().isEnabled(FileMenu::New));
}

TEST_F(ToolbarControlTest, EditingFocusesByTabAndShutsTheMenu)
{
    overview.tableViewSelectionDidChange(0);
    const QList<std::pair<QStringView, FieldId>> cases = {
        {u"Company Information", FieldId::authorFirstName}, {u"Program Information", FieldId::programName},
        {u"Program Descriptions", FieldId::appInfoURL},     {u"Web Information", FieldId::keywordsView},
        {u"Permissions", FieldId::distributionPermissions},
    };
    for (const auto &[label, field] : cases) {
        toolbar.setSelectedTabLabel(label.toString());
        toolbar.editTBI();
        EXPECT_EQ(focused.takeLast(), field) << label.toUtf8().constData();
    }
    EXPECT_TRUE(allMenuItemsAre(false));
    EXPECT_EQ(toolbar.currentView(), ContentView::Editor);
    toolbar.overviewTBI();
    EXPECT_TRUE(allMenuItemsAre(true));
    EXPECT_EQ(shown.last(), ContentView::Overview);
    EXPECT_EQ(mwqnSelSW, u"T"_s);

    toolbar.editTBI();
    ASSERT_TRUE(AddDeleteImportEdit::deleteQnDataFile(u"T"_s));
    overview.loadSoftwareList();
    EXPECT_EQ(shown.last(), ContentView::Overview) << "nothing would be stored of what is typed";
}

TEST_F(ToolbarControlTest, SubmittingAsksOnlyAboutErrors)
{
    overview.tableViewSelectionDidChange(0);
    toolbar.submitTBI();
    EXPECT_EQ(submitWindows, 1);
    EXPECT_FALSE(mwqnWOSi78tgsda);
    EXPECT_TRUE(allMenuItemsAre(false));
    EXPECT_TRUE(sheets.alerts.isEmpty());
    mwqnWOSi78tgsda = true;
    NotificationCenter::defaultCenter().post(notification::mwqnRS87968tJHKgfds);
    EXPECT_TRUE(allMenuItemsAre(true));

    ErrorTracking::setHasError(u"companyName"_s, u"message"_s);
    toolbar.submitTBI();
    EXPECT_EQ(submitWindows, 1);
    EXPECT_EQ(sheets.lastMessage(),
              u"There are still errors in the softwares PAD file.\nWould you like to correct "
              "these errors before submitting?"_s);
    sheets.answer(AlertAnswer::Default);
    EXPECT_EQ(submitWindows, 2);
    EXPECT_TRUE(mwqnWOSi78tgsda) << "on this path the flag is left as it is";

    toolbar.submitTBI();
    const qsizetype views = shown.size();
    sheets.answer(AlertAnswer::Closed);
    EXPECT_EQ(std::pair(submitWindows, shown.size()), std::pair(2, views));

    toolbar.submitTBI();
    sheets.answer(AlertAnswer::Alternate);
    EXPECT_EQ(submitWindows, 2);
    EXPECT_EQ(shown.last(), ContentView::Editor);
    EXPECT_EQ(focused.last(), FieldId::authorFirstName);
    EXPECT_EQ(toolbar.currentView(), ContentView::Overview);
    EXPECT_TRUE(allMenuItemsAre(false));
}
