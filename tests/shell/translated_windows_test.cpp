#include "shell/translations.h"
#include "shell/window_walk.h"
#include "submission/default_sites.h"
#include "submission/fakes.h"
#include "submission/late_engine.h"
#include "submission/submit_window.h"
#include "support/recorders.h"
#include "support/untranslated.h"

#include <QHelpEvent>
#include <QSplitter>

namespace {

/// The windows in a made-up language.
class TranslatedWindowsTest : public WindowWalkTest
{
protected:
    static void SetUpTestSuite()
    {
        ASSERT_TRUE(translations::load(QLocale(u"eo"_s), QStringLiteral(QUILLON_MADE_UP_LANGUAGE)));
    }

    static QStringList faultsOf(QWidget &window)
    {
        static const QStringList keys = u"Ctrl Shift Alt Left Right Esc Del"_s.split(u' ');
        static const QStringList own = keys + QStringList{u"Quillon"_s, u"KB"_s, u"MB"_s};
        return activated(window) ? roomFaults(window) + untranslatedTexts(window, own)
                                 : QStringList{u"the window does not get the keyboard"_s};
    }
};

} // namespace

TEST_F(TranslatedWindowsTest, TheMainWindowWithItsViews)
{
    walkViews(faultsOf);
}

TEST_F(TranslatedWindowsTest, EveryWindowThatACommandOpens)
{
    walkCommands(faultsOf);
}

TEST_F(TranslatedWindowsTest, TheSubmissionWindowBeforeItsEngineHasCome)
{
    drop({padFile(u"A"_s)});
    answerAlert(Alert().defaultButton);
    clickTitle(0);
    setDefaultSites();
    mwqnWOSi78tgsda = false;
    LateEngine engine;
    RecordingSheets sheets;
    FakeDesktop desktop;
    ManualCalls calls;
    SubmitWindow submission(engine, sheets, desktop, calls);
    submission.control().awakeFromNib();
    submission.control().loadSitesList();
    submission.bringToFront();
    EXPECT_EQ(faultsOf(submission), QStringList());
    for (const QString &id : {u"ledger"_s, u"siteNotes"_s}) {
        submission.findChild<QAction *>(id)->trigger();
        QWidget *sheet = QApplication::activeModalWidget();
        ASSERT_TRUE(sheet) << id;
        EXPECT_EQ(faultsOf(*sheet), QStringList()) << id;
        sheet->close();
    }
    auto *button = visible<QPushButton>(u"primaryDownloadURLButton"_s);
    for (const bool isNarrow : {false, true}) {
        if (isNarrow)
            submission.findChild<QSplitter *>()->setSizes({230, 1000, 1});
        QHelpEvent help(QEvent::ToolTip, {5, 5}, button->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(button, &help);
        EXPECT_EQ(button->toolTip().contains(button->text()), isNarrow) << "a title that is cut is told";
    }
}

TEST_F(TranslatedWindowsTest, EnglishNeedsNoFileAndComesBeforeOtherLanguages)
{
    const QString folder = QStringLiteral(QUILLON_MADE_UP_LANGUAGE);
    EXPECT_FALSE(translations::load(QLocale(u"en_GB"_s), folder));
    EXPECT_FALSE(translations::load(QLocale(u"fi"_s), folder)) << "no such language";
    EXPECT_FALSE(translations::load(QLocale(u"eo"_s), home())) << "no such folder";
}
