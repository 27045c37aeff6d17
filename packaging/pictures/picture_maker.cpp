#include "journal/journal.h"
#include "platform/settings.h"
#include "shell/workbench.h"
#include "store/process_state.h"
#include "submission/browser.h"
#include "submission/submit_window.h"

#include <QAction>
#include <QApplication>
#include <QDateEdit>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QNetworkProxy>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QTreeWidget>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillon;

// Shows one of the program's windows on a display where nothing else is, as an author would bring it there,
// and stores what is to be seen of it. Arguments: the home folder, whose titles script/pictures has made, the
// name of the picture, its file, and the page that every web address gives. Without any it tells the
// pictures' names.

namespace {

constexpr int argumentCount = 5;
constexpr int patience = 20000; ///< Milliseconds until what does not come to rest is given up.
constexpr int restTime = 400;   ///< Milliseconds without a change: then a window is as it stays.

const QString shownTitle = u"Harbour Log"_s;
const QString faultyTitle = u"Lens Calculator"_s;
const QString shownSite = u"Lighthouse Files"_s;

/// Handles what happens for @p milliseconds.
void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Waits until @p isThere; says @p what is missing and ends the program when it does not come.
template<typename Condition>
void waitFor(const char *what, const Condition &isThere)
{
    QElapsedTimer time;
    time.start();
    while (!isThere()) {
        if (time.hasExpired(patience)) {
            std::fprintf(stderr, "%s: does not come\n", what);
            std::exit(EXIT_FAILURE);
        }
        wait(20);
    }
}

/// What the screen shows of @p window once that changes no more.
QPixmap settled(const QWidget &window)
{
    QPixmap now;
    waitFor("a window at rest", [&] {
        const QPixmap before = now;
        wait(restTime);
        now = window.screen()->grabWindow(window.winId());
        return !before.isNull() && now.toImage() == before.toImage();
    });
    return now;
}

template<typename Widget = QWidget>
Widget &visible(const QString &name)
{
    Widget *found = nullptr;
    waitFor(qPrintable(name), [&] {
        for (QWidget *each : QApplication::allWidgets()) {
            if (each->objectName() == name && each->isVisible())
                found = qobject_cast<Widget *>(each);
        }
        return found != nullptr;
    });
    return *found;
}

void trigger(const QWidget &window, const QString &command)
{
    window.findChild<QAction *>(command)->trigger();
}

/// Makes the row current in which @p text stands.
void selectRow(QTableView &table, const QString &text)
{
    waitFor(qPrintable(text), [&] {
        const auto found = table.model()->match(table.model()->index(0, 0), Qt::DisplayRole, text);
        if (!found.isEmpty())
            table.setCurrentIndex(found.first().siblingAtColumn(0));
        return !found.isEmpty();
    });
}

/// Answers every request with one page. The engine takes it for its proxy, so that sites can have any name
/// and nothing is asked of the network.
class Site : public QTcpServer
{
public:
    explicit Site(const QByteArray &page)
    {
        listen(QHostAddress::LocalHost);
        QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, u"127.0.0.1"_s, serverPort()});
        connect(this, &QTcpServer::newConnection, this, [this, page] {
            QTcpSocket *connection = nextPendingConnection();
            connect(connection, &QTcpSocket::readyRead, connection, [connection, page] {
                connection->readAll();
                connection->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n" +
                                  page);
                connection->disconnectFromHost();
            });
        });
    }
};

/// The program with its window open, and the ways to its other windows.
class Author
{
public:
    explicit Author(const QByteArray &page) : m_site(page)
    {
        m_workbench.window().resize(1000, 640);
        m_workbench.window().show();
        wait(restTime);
    }

    QWidget &overview() { return selected(faultyTitle); }
    QWidget &emptyWindow() { return window(); }
    QWidget &editor()
    {
        selected(faultyTitle);
        trigger(window(), u"Edit"_s);
        visible<QTabWidget>(u"editorTabs"_s).setCurrentIndex(2); // The descriptions.
        visible(u"pd80CharDescript"_s).setFocus();
        return window();
    }
    QWidget &history() { return opened(u"history"_s, u"historyWindow"_s); }
    QWidget &matrix() { return opened(u"matrix"_s, u"matrixWindow"_s); }
    QWidget &preferences()
    {
        QWidget &preferences = opened(u"preferences"_s, u"prefsWindow"_s);
        visible<QLineEdit>(u"siteFilterField"_s).setText(u"quay"_s); // What else was removed has real names.
        return preferences;
    }
    QWidget &release()
    {
        QWidget &release = opened(u"newRelease"_s, u"releaseWindow"_s);
        release.findChild<QLineEdit *>(u"releaseVersion"_s)->setText(u"3.1"_s);
        release.findChild<QDateEdit *>(u"releaseDate"_s)->setDate({2026, 6, 14});
        release.findChild<QPlainTextEdit *>(u"releaseChanges"_s)
            ->setPlainText(u"Costs can be shared among the crew. Entries are printed month by month."_s);
        selectRow(*release.findChild<QTableView *>(u"plannedChanges"_s), u"Change information"_s);
        return release;
    }
    QWidget &submission()
    {
        selected(shownTitle);
        trigger(window(), u"Submit"_s);
        QWidget &submission = visible(u"submitWindow"_s);
        SubmitWindow &shown = *m_workbench.submission().window();
        selectRow(visible<QTableView>(u"sitesTableView"_s), shownSite);
        waitFor("the page",
                [&] { return !shown.browser().isLoading() && !shown.browser().host().isEmpty(); });
        return submission;
    }
    /// What is proposed for the form.
    QWidget &form()
    {
        trigger(submission(), u"fillForm"_s);
        QWidget &form = visible(u"formFillingWindow"_s);
        waitFor("the proposals", [&] { return fillButton().isEnabled(); });
        return form;
    }
    /// The page with its form filled in.
    QWidget &filledForm()
    {
        form();
        fillButton().click();
        wait(restTime);
        waitFor("the filled form", [&] { return visible<QPushButton>(u"closeFilling"_s).isDefault(); });
        visible<QPushButton>(u"closeFilling"_s).click();
        return visible(u"submitWindow"_s);
    }
    QWidget &manual()
    {
        trigger(window(), u"manual"_s);
        QWidget &manual = visible(u"manualWindow"_s);
        visible<QLineEdit>(u"manualSearch"_s).setText(u"release"_s);
        auto &list = visible<QTreeWidget>(u"manualList"_s);
        list.setCurrentItem(list.topLevelItem(0));
        return manual;
    }

private:
    QWidget &window() { return m_workbench.window(); }
    QWidget &selected(const QString &title)
    {
        selectRow(visible<QTableView>(u"softwareTableView"_s), title);
        return window();
    }
    QWidget &opened(const QString &command, const QString &name)
    {
        selected(shownTitle);
        trigger(window(), command);
        return visible(name);
    }
    static QPushButton &fillButton() { return visible<QPushButton>(u"fillButton"_s); }

    Site m_site;
    Workbench m_workbench;
};

struct Picture
{
    QStringView name;
    QWidget &(Author::*show)();
    QSize size = {}; ///< Of the window; its own where there is none.
};

// clang-format off
constexpr Picture pictures[] = {
    {.name = u"begin", .show = &Author::emptyWindow},
    {.name = u"overview", .show = &Author::overview},
    {.name = u"editor", .show = &Author::editor},
    {.name = u"release", .show = &Author::release},
    {.name = u"history", .show = &Author::history, .size = {1000, 440}},
    {.name = u"matrix", .show = &Author::matrix, .size = {1000, 400}},
    {.name = u"preferences", .show = &Author::preferences, .size = {900, 440}},
    {.name = u"submission", .show = &Author::filledForm},
    {.name = u"form", .show = &Author::form},
    {.name = u"manual", .show = &Author::manual},
};
// clang-format on

/// Moments are those of an invented past, so that a picture looks the same every day.
Result<> datePast()
{
    static constexpr qint64 first = 1'777'620'000'000; // 2026-05-01 07:20, UTC
    static constexpr qint64 step = 2'820'000;          // 47 minutes
    return Journal::ofDataFolder().changeExisting([](Database &database) -> Result<> {
        Result<Statement> update = database.prepare("UPDATE history SET time = ? + id * ?", first, step);
        if (!update)
            return update.error();
        if (const auto done = update->next(); !done)
            return done.error();
        return {};
    });
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 1) {
        for (const Picture &each : pictures)
            std::puts(qPrintable(each.name.toString()));
        return EXIT_SUCCESS;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"quillon"_s);
    QApplication::setApplicationDisplayName(u"Quillon"_s);
    QApplication::setCursorFlashTime(0);
    const QStringList arguments = QApplication::arguments();
    const auto *picture = std::ranges::find(pictures, QStringView(arguments.value(2)), &Picture::name);
    QFile page(arguments.value(4));
    if (arguments.size() != argumentCount || picture == std::end(pictures) || !page.open(QIODevice::ReadOnly))
        return EXIT_FAILURE;
    setSettingsHome(arguments[1]);
    setDataFolder(arguments[1]);
    if (const Result<> dated = datePast(); !dated)
        return EXIT_FAILURE;
    Author author(page.readAll());
    QWidget &window = (author.*picture->show)();
    if (!picture->size.isEmpty())
        window.resize(picture->size);
    window.activateWindow();
    constexpr int strongest = 0; // What is best compressed.
    return settled(window).save(arguments[3], "PNG", strongest) ? EXIT_SUCCESS : EXIT_FAILURE;
}
