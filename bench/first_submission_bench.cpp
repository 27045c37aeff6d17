#include "measuring.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "shell/workbench.h"
#include "submission/browser_events.h"
#include "submission/browser_loading.h"
#include "submission/submit_window.h"
#include "submitted_title.h"
#include "support/own_home.h"

#include <QEventLoop>
#include <QMainWindow>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

/// Loads the engine and shows a window that holds nothing but a page of it; a process does it once.
void showEngineAlone(const QString &home)
{
    const double shown = seconds([&home] {
        const Result<BrowserModule *> module = loadBrowserModule(browserModulePath());
        if (!module)
            return;
        static QtDesktop desktop;
        static const std::unique_ptr<BrowserEngine> engine = (*module)->newEngine(home, desktop);
        static BrowserEvents events;
        const Drawing drawing(u"bare"_s);
        QMainWindow window;
        window.setObjectName(u"bare"_s);
        window.setCentralWidget(&engine->newBrowser(u"view"_s, events).widget());
        window.resize(1240, 680);
        window.show();
        drawing.wait();
    });
    std::printf("%f\n", shown);
}

/// Answers everything with a short page.
void serve(QTcpServer &server)
{
    server.listen(QHostAddress::LocalHost);
    QObject::connect(&server, &QTcpServer::newConnection, [&server] {
        QTcpSocket *connection = server.nextPendingConnection();
        QObject::connect(connection, &QTcpSocket::readyRead, connection, [connection] {
            connection->readAll();
            connection->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                              "<title>A site</title><p>A page");
            connection->disconnectFromHost();
        });
    });
}

/// Lets what is under way come to its end.
void settle()
{
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Opens the submission window for the first time in this process, waits for the page of the first site, and
/// opens the window again. Each is told in seconds, from the press of Submit.
void openTwice(const QString &home)
{
    if (!prepareHome(home))
        return;
    QTcpServer server;
    serve(server);
    Workbench workbench;
    QObject observer;
    const QString address = u"http://127.0.0.1:%1/"_s.arg(server.serverPort());
    NotificationCenter::defaultCenter().addObserver(notification::mwqnPClSiL432ds, &observer, [&address] {
        mwqnSCPreallSitesDict[u"0 A site"_s] = address;
    });
    workbench.overview().tableViewSelectionDidChange(0);
    SubmissionOpener &opener = workbench.submission();
    double drawn = 0;
    const double loaded = seconds([&] {
        drawn = seconds([&] { showSubmitWindow(workbench.toolbar()); });
        while (opener.window()->browser().isLoading() || opener.window()->browser().host().isEmpty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
    settle();
    opener.close();
    settle();
    const double again = seconds([&] { showSubmitWindow(workbench.toolbar()); });
    std::printf("%f %f %f\n", drawn, loaded, again);
}

/// What a new process of this program with @p mode prints.
QList<QByteArray> figures(const QString &mode)
{
    const QTemporaryDir home;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {mode, home.path()});
    process.waitForFinished();
    return process.readAllStandardOutput().simplified().split(' ');
}

/// The first opening of the submission window in a process, on a title with 200 marks, until its list is
/// drawn and until the first site's page has loaded, and the second opening. In turn with loading the engine
/// alone and showing a window with an empty page of it.
void openFirst(benchmark::State &state)
{
    std::vector<double> engines;
    std::vector<double> openings[3];
    for ([[maybe_unused]] const auto iteration : state) {
        engines.push_back(figures(u"engine"_s).value(0).toDouble());
        const QList<QByteArray> opening = figures(u"window"_s);
        if (opening.size() != std::ssize(openings) || engines.back() <= 0) {
            state.SkipWithError("a window could not be shown");
            return;
        }
        for (qsizetype each = 0; each < opening.size(); ++each)
            openings[each].push_back(opening[each].toDouble());
        state.SetIterationTime(openings[0].back());
    }
    state.counters["floor_ms"] = median(engines) * 1e3;
    state.counters["ratio"] = median(openings[0]) / median(engines);
    state.counters["page_ms"] = median(openings[1]) * 1e3;
    state.counters["again_ms"] = median(openings[2]) * 1e3;
    state.counters["again_ratio"] = median(openings[2]) / median(engines);
}
BENCHMARK(openFirst)->Iterations(15)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    const OwnHome home; // The engine and what draws keep something there.
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"engine") {
        showEngineAlone(arguments.value(2));
        return 0;
    }
    if (arguments.value(1) == u"window") {
        openTwice(arguments.value(2));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
