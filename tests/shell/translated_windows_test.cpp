#include "shell/translations.h"
#include "shell/window_walk.h"
#include "support/untranslated.h"

#include <QHelpEvent>

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

TEST_F(TranslatedWindowsTest, TheSubmissionWindowAndWhatItOpens)
{
    walkSubmission(faultsOf, [](SubmitWindow &submission) {
        auto *button = visible<QPushButton>(u"primaryDownloadURLButton"_s);
        for (const bool isNarrow : {false, true}) {
            if (isNarrow)
                submission.findChild<QSplitter *>()->setSizes({230, 1000, 1});
            QHelpEvent help(QEvent::ToolTip, {5, 5}, button->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(button, &help);
            EXPECT_EQ(button->toolTip().contains(button->text()), isNarrow) << "a title that is cut is told";
        }
    });
}

TEST_F(TranslatedWindowsTest, EnglishNeedsNoFileAndComesBeforeOtherLanguages)
{
    const QString folder = QStringLiteral(QUILLON_MADE_UP_LANGUAGE);
    EXPECT_FALSE(translations::load(QLocale(u"en_GB"_s), folder));
    EXPECT_FALSE(translations::load(QLocale(u"fi"_s), folder)) << "no such language";
    EXPECT_FALSE(translations::load(QLocale(u"eo"_s), home())) << "no such folder";
}
