#include "submission/submit_window.h"

#include "platform/alert_sheets.h"
#include "platform/settings.h"
#include "store/process_state.h"
#include "store/storage_status.h"
#include "submission/accessible_roles.h"
#include "submission/author_presses.h"
#include "submission/browser_bar.h"
#include "submission/browser_events.h"
#include "submission/engine_environment.h"
#include "submission/field_copy_view.h"
#include "submission/form_filling_window.h"
#include "submission/ledger_dialog.h"
#include "submission/load_status_row.h"
#include "submission/mark_row.h"
#include "submission/pop_up_window.h"
#include "submission/site_notes_dialog.h"
#include "submission/sites_drawer.h"
#include "submission/submit_commands.h"
#include "submission/tour_control.h"
#include "submission/tour_strip.h"
#include "widgets/bring_to_front.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString windowGeometryKey = u"submitWindow/geometry"_s;
const QString splitterKey = u"submitWindow/splitter"_s;
const QString drawerKey = u"submitWindow/sitesDrawerOpen"_s;
const QString zoomKey = u"submitWindow/zoom"_s;

constexpr QSize usualWindowSize(1240, 680);
constexpr int usualPanelWidth = 240;

} // namespace

SubmitWindow::SubmitWindow(BrowserEngine &engine, AlertSheets &alerts, Desktop &desktop,
                           DelayedCalls &delayedCalls)
    : m_engine(engine)
    , m_alerts(alerts)
    , m_events(new BrowserEvents)
    , m_qnWebView(engine.newBrowser(u"qnWebView"_s, *m_events))
    , m_popUpBrowserWindow(std::make_unique<PopUpWindow>(engine))
    , m_control(std::make_unique<SubmitControl>(
          SubmitControl::Parts{m_qnWebView, m_popUpBrowserWindow->browser(), alerts, desktop, delayedCalls}))
    , m_tour(std::make_unique<TourControl>(*m_control))
{
    m_events->setParent(&m_qnWebView.widget()); // It may be told of something until then.
    installAccessibleRoles();
    setObjectName(u"submitWindow"_s);
    setWindowTitle(tr("Submitting"));
    buildCommands();
    setCentralWidget(newContent());
    m_popUpBrowserWindow->bindTo(*m_control, m_qnWebView.widget(), *m_fieldCopyView);
    connectControl();
    restoreLayout();
}

SubmitWindow::~SubmitWindow() = default;

void SubmitWindow::buildCommands()
{
    m_commands = new CommandSet(submitCommands(*this), this);
    m_commands->action(u"drawer"_s)->setCheckable(true);
    m_commands->fillMenus(*menuBar());
}

QWidget *SubmitWindow::newContent()
{
    m_browserBar = new BrowserBar(m_control->pageLoad(), m_qnWebView, *m_events, *m_commands);
    m_sitesDrawer = new SitesDrawer(*m_control);
    m_fieldCopyView = new FieldCopyView(m_control->fieldCopyPanel());
    m_statusRow = new LoadStatusRow(m_control->pageLoad());
    if (!sandboxWarning().isEmpty())
        m_statusRow->showWarning(tr("Pages run without a sandbox."));
    m_splitter = new QSplitter;
    m_splitter->setObjectName(u"submitSplitter"_s);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(m_sitesDrawer);
    m_splitter->addWidget(newPagePanel());
    m_splitter->addWidget(m_fieldCopyView);
    m_splitter->setStretchFactor(1, 1);

    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->addWidget(m_browserBar);
    layout->addWidget(new MarkRow(*m_control, *m_commands));
    layout->addWidget(new TourStrip(*m_tour, *m_commands));
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_statusRow);
    return content;
}

QWidget *SubmitWindow::newPagePanel()
{
    m_notLoadedHint = new QLabel;
    m_notLoadedHint->setObjectName(u"notLoadedHint"_s);
    m_notLoadedHint->setTextFormat(Qt::PlainText);
    m_notLoadedHint->setAlignment(Qt::AlignCenter);
    m_notLoadedHint->setWordWrap(true);
    m_pageOrHint = new QStackedWidget;
    m_pageOrHint->addWidget(&m_qnWebView.widget());
    m_pageOrHint->addWidget(m_notLoadedHint);
    m_pageOrHint->setMinimumWidth(320);
    return m_pageOrHint;
}

void SubmitWindow::connectControl()
{
    SubmitControl *control = m_control.get();
    connect(control, &SubmitControl::openSitesDrawer, this, [this] { openDrawer(true); });
    connect(control, &SubmitControl::hindranceChanged, this, &SubmitWindow::showStates);
    connect(&control->sites(), &SubmissionSites::textsChanged, this, &SubmitWindow::showStates);
    connect(&control->sites(), &SubmissionSites::selectedRowChanged, this, &SubmitWindow::showStates);
    for (BrowserEvents *events : {m_events, &m_popUpBrowserWindow->events()}) {
        connect(events, &BrowserEvents::notice, m_statusRow, &LoadStatusRow::showNotice);
        connect(events, &BrowserEvents::pasted, m_statusRow, &LoadStatusRow::sayPasted);
    }
    connect(&control->fieldCopyPanel(), &FieldCopyPanel::nothingPasted, m_statusRow,
            &LoadStatusRow::showNotice);
    connect(m_events, &BrowserEvents::stateChanged, m_commands, &CommandSet::update);
    m_presses =
        std::make_unique<AuthorPresses>(m_qnWebView, m_popUpBrowserWindow->browser(), control->questions());
    connect(control, &SubmitControl::closePopUpWindow, this, [this] { m_qnWebView.setPasteTarget(nullptr); });
    connect(m_fieldCopyView, &FieldCopyView::pressedByKeyboard, this,
            [this] { m_qnWebView.widget().setFocus(); });
    showStates();
}

void SubmitWindow::showStates()
{
    m_commands->action(u"mark"_s)->setText(m_control->sites().markSubmittedButtonTitle());
    m_commands->update();
    if (isVisible())
        showPageOrHint();
}

void SubmitWindow::showPageOrHint()
{
    m_notLoadedHint->setText(m_control->whyNoPages());
    m_pageOrHint->setCurrentIndex(mwqnWOSi78tgsda ? 1 : 0);
}

void SubmitWindow::findSite()
{
    openDrawer(true);
    m_sitesDrawer->focusFilter();
}

void SubmitWindow::findField()
{
    m_fieldCopyView->focusFilter();
}

void SubmitWindow::fillForm()
{
    if (auto *open = findChild<FormFillingWindow *>())
        open->close(); // It is about what the page was then.
    (new FormFillingWindow(m_qnWebView, m_control->sites().selectedSite(), this))->show();
}

void SubmitWindow::findAddress()
{
    m_browserBar->focusAddress();
}

void SubmitWindow::openLedger()
{
    auto *ledger = new LedgerDialog(*m_control->title(), m_control->sites().selectedSite(), this);
    connect(ledger, &LedgerDialog::stored, m_tour.get(), &TourControl::refresh);
    ledger->open();
}

void SubmitWindow::openSiteNotes()
{
    auto *notes = new SiteNotesDialog(m_control->sites().selectedSite(), this);
    connect(notes, &SiteNotesDialog::stored, m_tour.get(), &TourControl::refresh);
    notes->open();
}

void SubmitWindow::toggleDrawer()
{
    openDrawer(!m_sitesDrawer->isVisibleTo(this));
}

void SubmitWindow::openDrawer(bool isOpen)
{
    m_commands->action(u"drawer"_s)->setChecked(isOpen);
    m_sitesDrawer->setVisible(isOpen);
}

void SubmitWindow::zoom(double factor)
{
    m_qnWebView.setZoomFactor(factor);
    m_statusRow->showNotice(tr("Zoom: %L1 %").arg(qRound(m_qnWebView.zoomFactor() * 100)));
    settings().setValue(zoomKey, m_qnWebView.zoomFactor());
}

void SubmitWindow::clearPagesData()
{
    const Alert question{.message = tr("Do you want to clear what pages have stored?"),
                         .informativeText =
                             tr("Sites forget who you are, and pages on show are loaded anew; what "
                                "was filled in there is lost. Titles and marks stay."),
                         .defaultButton = tr("Clear"),
                         .alternateButton = tr("Cancel")};
    m_alerts.show(SheetWindow::Submission, question, [self = QPointer(this)](AlertAnswer answer) {
        if (!self || answer != AlertAnswer::Default)
            return;
        const Result<> cleared = self->m_engine.clearStorage();
        if (cleared)
            self->m_statusRow->showNotice(tr("What pages had stored is cleared."));
        else // Pages are loaded anew, and take notices away.
            self->m_alerts.show(SheetWindow::Submission, {failureSentence(cleared.error())}, {});
    });
}

void SubmitWindow::bringToFront()
{
    showPageOrHint();
    quillon::bringToFront(*this);
}

void SubmitWindow::paintEvent(QPaintEvent *event)
{
    QMainWindow::paintEvent(event);
    if (!std::exchange(m_isDrawn, true))
        Q_EMIT drawn();
}

void SubmitWindow::hideEvent(QHideEvent *event)
{
    m_isDrawn = false;
    QMainWindow::hideEvent(event);
}

void SubmitWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    m_control->windowWillClose(); // Before the sheets go, or the next of them would come.
    for (QDialog *sheet : findChildren<QDialog *>())
        sheet->reject();
    m_qnWebView.stop();
    m_qnWebView.restWhileHidden();
    m_popUpBrowserWindow->close();
    QMainWindow::closeEvent(event);
}

void SubmitWindow::saveLayout() const
{
    settings().setValue(windowGeometryKey, saveGeometry());
    settings().setValue(splitterKey, m_splitter->saveState());
    settings().setValue(drawerKey, m_commands->action(u"drawer"_s)->isChecked());
}

void SubmitWindow::restoreLayout()
{
    resize(usualWindowSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(windowGeometryKey).toByteArray());
    if (!m_splitter->restoreState(settings().value(splitterKey).toByteArray())) {
        const int more = qMax(0, m_fieldCopyView->sizeHint().width() - usualPanelWidth);
        m_splitter->setSizes({230, 780 - more, usualPanelWidth + more});
    }
    openDrawer(settings().value(drawerKey, true).toBool());
    m_qnWebView.setZoomFactor(settings().value(zoomKey, 1.0).toDouble());
}

} // namespace quillon
