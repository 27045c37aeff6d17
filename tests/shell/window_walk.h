#pragma once

#include "shell/main_window_fixture.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"
#include "submission/fakes.h"
#include "submission/late_engine.h"
#include "submission/submit_window.h"
#include "submission/tour_control.h"
#include "support/cut_text.h"
#include "support/recorders.h"

#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QTabWidget>

#include <functional>

namespace quillon {

inline constexpr int frameHeight = 30; ///< What the window system takes of a screen for a window's title.

inline bool activated(QWidget &window)
{
    QCoreApplication::processEvents(); // What closed before tells the window below so.
    window.activateWindow();
    QCoreApplication::processEvents();
    return eventually([&window] { return QApplication::activeWindow() == &window; });
}

/// What does not fit when @p window stands on a small screen.
inline QStringList roomFaults(QWidget &window)
{
    static constexpr QSize smallScreen(1280, 720);
    const QSize room = smallScreen.shrunkBy({0, frameHeight, 0, 0});
    window.resize(window.parentWidget() ? window.size().boundedTo(room) : room);
    QCoreApplication::processEvents();
    QStringList faults = cutTexts(window);
    if (window.size() != window.size().boundedTo(room))
        faults.append(QStringLiteral("the window needs %1 x %2").arg(window.width()).arg(window.height()));
    return faults;
}

/// The window that has come on top of @p main; null when none came.
inline QWidget *openedOver(const QWidget &main)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window != &main && window->isVisible() && window->isWindow() && !window->inherits("QMenu"))
            return window;
    }
    return nullptr;
}

/// A walk through all windows. That for submitting is walked as it is before its engine has come.
class WindowWalkTest : public MainWindowTest
{
protected:
    /// What is wrong in a window as it is shown, a line each.
    using Look = std::function<QStringList(QWidget &window)>;

    QString name = QStringLiteral("A"); ///< Of the title that is there.

    void walkViews(const Look &faultsOf)
    {
        EXPECT_EQ(faultsOf(window()), QStringList()) << "without titles";
        drop({padFile(name)});
        ASSERT_TRUE(eventually([] { return openWindow<QMessageBox>() != nullptr; }));
        EXPECT_EQ(faultsOf(*openWindow<QMessageBox>()), QStringList()) << "what is lost";
        answerAlert(Alert().defaultButton);
        clickTitle(0);
        EXPECT_EQ(faultsOf(window()), QStringList()) << "the list";
        command(QStringLiteral("Edit"))->trigger();
        auto *pages = window().findChild<QTabWidget *>();
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            EXPECT_EQ(faultsOf(window()), QStringList()) << pages->tabText(page);
        }
    }

    void walkCommands(const Look &faultsOf)
    {
        drop({padFile(name)});
        answerAlert(Alert().defaultButton);
        const QStringList others = QStringLiteral("quit Submit help bugReport updates").split(u' ');
        int opened = 0;
        for (const QMenu *menu : window().menuBar()->findChildren<QMenu *>()) {
            for (QAction *action : menu->actions()) {
                ASSERT_TRUE(activated(window()));
                clickTitle(0);
                if (others.contains(action->objectName()) || !action->isEnabled())
                    continue;
                action->trigger();
                QWidget *over = openedOver(window());
                if (over && !qobject_cast<QFileDialog *>(over)) {
                    EXPECT_EQ(faultsOf(*over), QStringList()) << action->text();
                    ++opened;
                }
                if (over)
                    over->close();
                command(QStringLiteral("Overview"))->trigger();
            }
        }
        EXPECT_GE(opened, 7);
    }

    /// Walks the submission window with a tour under way, and what it opens; @p more is looked at last.
    void walkSubmission(
        const Look &faultsOf, const std::function<void(SubmitWindow &)> &more = [](SubmitWindow &) {})
    {
        drop({padFile(name)});
        answerAlert(Alert().defaultButton);
        clickTitle(0);
        setDefaultSites();
        Summary summary;
        summary.version = QStringLiteral("2");
        summary.sites = mwqnDefaultSitesDict.begin()->first;
        summary.versions = QStringLiteral("1");
        put(*title_folder::path(name) + u'/' + title_folder::summaryFile,
            summary_file::text(summary).toUtf8());
        mwqnWOSi78tgsda = false;
        LateEngine engine;
        RecordingSheets sheets;
        FakeDesktop desktop;
        ManualCalls calls;
        SubmitWindow submission(engine, sheets, desktop, calls);
        submission.control().awakeFromNib();
        submission.control().loadSitesList();
        submission.bringToFront();
        ASSERT_TRUE(eventually([&] { return submission.tour().isOffered(); }));
        EXPECT_EQ(faultsOf(submission), QStringList());
        for (const char *const id : {"ledger", "siteNotes"}) {
            submission.findChild<QAction *>(QLatin1String(id))->trigger();
            QWidget *sheet = QApplication::activeModalWidget();
            ASSERT_TRUE(sheet) << id;
            EXPECT_EQ(faultsOf(*sheet), QStringList()) << id;
            sheet->close();
        }
        Q_EMIT submission.control().openPopUpWindow();
        auto *popUp = visible<QWidget>(QStringLiteral("popUpBrowserWindow"));
        EXPECT_EQ(faultsOf(*popUp), QStringList());
        popUp->close();
        more(submission);
    }
};

} // namespace quillon
