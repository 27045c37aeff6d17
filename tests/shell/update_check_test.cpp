#include "platform/application_info.h"
#include "shell/main_window_fixture.h"
#include "shell/update_check.h"
#include "submission/address_catcher.h"
#include "submission/fakes.h"
#include "support/recorders.h"

#include <QMessageBox>

namespace {

/// With other programs in the place of the system's.
class UpdateCheckTest : public MainWindowTest
{
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        QDir(home()).mkdir(u"bin"_s);
        qputenv("PATH", QFile::encodeName(home() + u"/bin"_s));
    }
    void TearDown() override
    {
        qputenv("PATH", m_path);
        MainWindowTest::TearDown();
    }

    /// From now on @p name does what the shell script @p lines says; it is not installed where that is null.
    void install(const QString &name, const char *lines) const
    {
        const QString path = home() + u"/bin/"_s + name;
        QFile::remove(path);
        if (!lines)
            return;
        put(path, QByteArray("#!/bin/sh\n") + lines + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }

private:
    const QByteArray m_path = qgetenv("PATH");
};

constexpr auto centre = "[ \"$*\" = 'query default x-scheme-handler/appstream' ] && echo org.centre.desktop";
constexpr auto hanging = "exec /bin/sleep 600";

} // namespace

TEST_F(UpdateCheckTest, OneWayOrTheOtherTheAuthorIsToldOnce)
{
    struct Row
    {
        const char *mime;
        const char *packages;
        bool hasOpener;
        QString told; ///< Empty where the software centre is opened.
    };
    const QString byPackage = u"was installed by the Debian package “%1”\nA package is"_s;
    const QString byNone = u"was not installed by a Debian package\nThe program is /"_s;
    const QString unknown = u"was installed could not be found out\ndpkg-query %1."_s;
    const Row table[] = {
        {centre, nullptr, true, {}},
        {centre, "echo quillon: \"$2\"", false, byPackage.arg(u"quillon"_s)},
        {"echo", "[ \"$1\" = --search ] && echo quillon: \"$2\"", true, byPackage.arg(u"quillon"_s)},
        {nullptr, "echo diversion by a from: \"$2\"; echo b: \"$2\"", true, byPackage.arg(u"b"_s)},
        {"echo org.centre.desktop; exit 4", "echo a, b:amd64: \"$2\"", true, byPackage.arg(u"a, b:amd64"_s)},
        {hanging, "exit 1", true, byNone},
        {"kill $$", "echo quillon: \"$2\"-dbg; echo \"$2\"", true, byNone},
        {nullptr, nullptr, true, byNone},
        {nullptr, "exit 2", true, unknown.arg(u"failed"_s)},
        {nullptr, hanging, true, unknown.arg(u"did not answer"_s)},
    };
    for (const Row &row : table) {
        install(u"xdg-mime"_s, row.mime);
        install(u"dpkg-query"_s, row.packages);
        FakeDesktop desktop;
        desktop.hasOpener = row.hasOpener;
        RecordingSheets sheets;
        ManualCalls calls;
        UpdateCheck check(desktop, sheets, calls);
        check.begin();
        check.begin(); // Impatiently.
        EXPECT_TRUE(sheets.alerts.isEmpty()) << "the window goes on";
        calls.pass(UpdateCheck::patience - std::chrono::milliseconds(1));
        const bool hangs = row.mime == hanging || row.packages == hanging;
        if (hangs) {
            QTest::qWait(300);
            EXPECT_EQ(sheets.alerts.size() + desktop.centresOpened, 0);
            calls.pass(UpdateCheck::patience); // The second program has begun after the first.
        }
        ASSERT_TRUE(eventually([&] { return sheets.alerts.size() + desktop.centresOpened > 0; })) << row.told;
        EXPECT_EQ(sheets.alerts.size(), row.told.isEmpty() ? 0 : 1);
        EXPECT_TRUE(row.told.isEmpty() || sheets.lastTexts().contains(row.told)) << sheets.lastTexts();
    }
}

TEST_F(UpdateCheckTest, TheDesktopGetsTheOneAddressOrASheetWithItsPageOfTheManual)
{
    AddressCatcher desktop;
    install(u"xdg-mime"_s, centre);
    command(u"updates"_s)->trigger();
    ASSERT_TRUE(eventually([&] { return !desktop.opened.isEmpty(); }));
    EXPECT_EQ(desktop.opened, QStringList{u"appstream:example.quillon.Quillon"_s});
    QtDesktop().openWebAddress(QUrl(application_info::softwareCentreAddress));
    EXPECT_EQ(desktop.opened.size(), 1) << "as an address from elsewhere it is none";

    install(u"xdg-mime"_s, nullptr);
    command(u"updates"_s)->trigger();
    ASSERT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
    QTest::keyClick(openWindow<QMessageBox>(), Qt::Key_F1);
    EXPECT_TRUE(
        visible<QWidget>(u"manualPage"_s)->property("source").toUrl().path().endsWith(u"program.html"));
    EXPECT_TRUE(answerAlert(u"OK"_s).contains(u"was not installed by a Debian package"_s));
}
