#include "measuring.h"
#include "pad/pad_writer.h"
#include "platform/atomic_file.h"
#include "platform/settings.h"
#include "shell/workbench.h"
#include "store/add_delete_import_edit.h"
#include "store/process_state.h"
#include "store/summary_file.h"
#include "store/title_folder.h"
#include "submission/default_sites.h"
#include "submission/engine_environment.h"
#include "submission/submit_window.h"
#include "support/valid_form.h"

#include <QApplication>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace {

constexpr size_t marks = 200;

/// A title without errors and with marks for most of the sites, half of them at older versions.
bool makeTitle()
{
    QStringList sites;
    QStringList versions;
    for (size_t index = 0; index < marks; ++index) {
        sites.append(defaultSites[index].name.toString());
        versions.append(index % 2 == 0 ? u"0.9"_s : u"1.0"_s);
    }
    PadForm form;
    fillValidly(form, true);
    Summary summary;
    summary.version = form.value(FieldId::programVersion);
    summary.sites = sites.join(u',');
    summary.versions = versions.join(u',');
    const QString title = u"Title"_s;
    return AddDeleteImportEdit::createNewListing(title) &&
           atomic_file::write(*title_folder::path(title) + u'/' + title_folder::padFile,
                              pad_writer::document(form)) &&
           atomic_file::write(*title_folder::path(title) + u'/' + title_folder::summaryFile,
                              summary_file::text(summary).toUtf8());
}

/// Sees when the widget of a name, or something in it, is drawn.
class Drawing : public QObject
{
public:
    explicit Drawing(QString name) : m_name(std::move(name)) { qApp->installEventFilter(this); }
    void wait() const
    {
        while (!m_isDrawn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            for (const QObject *each = watched; each && !m_isDrawn; each = each->parent())
                m_isDrawn = each->objectName() == m_name;
        }
        return false;
    }

private:
    QString m_name;
    bool m_isDrawn = false;
};

void showBareWindow(QWebEngineProfile &profile)
{
    const Drawing drawing(u"bare"_s);
    QMainWindow window;
    window.setObjectName(u"bare"_s);
    auto *view = new QWebEngineView(&window);
    view->setPage(new QWebEnginePage(&profile, view));
    window.setCentralWidget(view);
    window.resize(1240, 680);
    window.show();
    drawing.wait();
}

/// What happens from the press of Submit until the list of sites is drawn.
void showSubmitWindow(ToolbarControl &toolbar)
{
    const Drawing drawing(u"sitesTableView"_s);
    toolbar.submitTBI();
    drawing.wait();
}

/// Opening the submission window on a title with 200 marks, in turn with showing a window that holds nothing
/// but the same engine's view. The engine itself runs already.
void openSubmitWindow(benchmark::State &state)
{
    const QTemporaryDir home;
    setSettingsHome(home.path());
    setDataFolder(home.path());
    (void)AddDeleteImportEdit::checkAppSuppExists();
    setDefaultSites();
    if (!makeTitle())
        state.SkipWithError("the title could not be made");
    const auto bare = [&home] {
        QWebEngineProfile profile(u"bare"_s);
        profile.setPersistentStoragePath(home.filePath(u"bare"_s));
        showBareWindow(profile);
    };
    bare();

    std::vector<double> openings;
    std::vector<double> floors;
    for ([[maybe_unused]] const auto iteration : state) {
        floors.push_back(seconds(bare));
        Workbench workbench;
        workbench.overview().tableViewSelectionDidChange(0);
        openings.push_back(seconds([&] { showSubmitWindow(workbench.toolbar()); }));
        SubmissionOpener &opener = workbench.submission();
        if (opener.window()->control().sites().submittedToArraySTR().count(u"1"_s) != qsizetype(marks))
            state.SkipWithError("the marks are not in the list");
        opener.close();
        state.SetIterationTime(openings.back());
    }
    state.counters["floor_ms"] = median(floors) * 1e3;
    state.counters["ratio"] = median(openings) / median(floors);
}
BENCHMARK(openSubmitWindow)->Iterations(40)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    prepareEngineEnvironment();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
