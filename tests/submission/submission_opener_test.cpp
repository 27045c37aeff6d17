#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/settings.h"
#include "store/process_state.h"
#include "submission/browser_module.h"
#include "submission/data_folder_fixture.h"
#include "submission/submit_program.h"
#include "support/gui.h"
#include "support/web_server.h"

/// Submitting in a process that has started without a web engine, as the program does.
class SubmissionOpenerTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        setSettingsHome(home());
        NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, &m_observer, [this] {
            mwqnSCPreallSitesDict = {{u"Alpha"_s, server.url(u"/form.html"_s)}};
        });
        makeTitle(u"Mine"_s, {}, {}, u"1.0"_s);
        writeTo(pathIn(u"Mine"_s, title_folder::padFile), u"<City_Town>Leeds</City_Town>"_s);
    }

    WebServer server;

private:
    QObject m_observer;
};

TEST_F(SubmissionOpenerTest, WithoutTheEngineItSaysWhatToDoAndAllElseGoesOn)
{
    QByteArray needsAnother = contents(browserModulePath());
    ASSERT_GT(needsAnother.replace("WebEngineWidgets.so.6", "WebEngineWidgets.so.0").count("so.0"), 0);
    const std::tuple<QString, QByteArray, QString> cases[] = {
        {u"missing.so"_s, {}, u"install Quillon again"_s},
        {u"strange.so"_s, "not a library", u"strange.so"_s},
        {u"needs-another.so"_s, needsAnother, u"install the package libqt6webenginewidgets6"_s},
    };
    for (const auto &[name, bytes, told] : cases) {
        const QString module = home() + u'/' + name;
        ASSERT_TRUE(bytes.isEmpty() || put(module, bytes));
        SubmitProgram program(module);
        const QString says = answerAlert(u"OK"_s);
        EXPECT_TRUE(says.contains(told)) << says.toStdString();
        EXPECT_EQ(program.submission.window(), nullptr);
        EXPECT_TRUE(mwqnWOSi78tgsda) << "another title can be selected";
        EXPECT_TRUE(program.overview.fileMenu().isEnabled(FileMenu::Edit));
        program.toolbar.submitTBI();
        EXPECT_EQ(answerAlert(u"OK"_s), says);
    }
}

TEST_F(SubmissionOpenerTest, TheEngineIsLoadedWhenItIsWanted)
{
    SubmitProgram program;
    ASSERT_TRUE(eventually([&] { return server.count(u"/form.html"_s) == 1; }));
    ASSERT_TRUE(eventually([&] { return !program.submission.window()->browser().isLoading(); }));
    EXPECT_EQ(program.submission.window()->browser().currentUrl(), server.url(u"/form.html"_s));
}
