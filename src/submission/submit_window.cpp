#include "submission/submit_window.h"

#include "platform/settings.h"
#include "store/process_state.h"
#include "submission/activity_indicator.h"
#include "submission/browser_bar.h"
#include "submission/field_copy_view.h"
#include "submission/pop_up_window.h"
#include "submission/progress_bar_view.h"
#include "submission/sites_drawer.h"
#include "submission/web_engine_browser.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"submitWindow/geometry"_s;
const QString splitterKey = u"submitWindow/splitter"_s;
const QString drawerKey = u"submitWindow/sitesDrawerOpen"_s;
const QString zoomKey = u"submitWindow/zoom"_s;

constexpr QSize usualSize(1240, 680);
constexpr double zoomStep = 1.1;

/// The widest of the titles that the mark button takes in turn.
const QString widestMarkTitle = u"Mark Re-Submitted"_s;

} // namespace

SubmitWindow::SubmitWindow(QWebEngineProfile &profile, AlertSheets &alerts, Desktop &desktop,
                           DelayedCalls &delayedCalls)
    : m_qnWebView(new WebEngineBrowser(profile, u"qnWebView"_s, this))
    , m_popUpBrowserWindow(std::make_unique<PopUpWindow>(profile))
    , m_control(std::make_unique<SubmitControl>(
          SubmitControl::Parts{*m_qnWebView, m_popUpBrowserWindow->browser(), alerts, desktop, delayedCalls}))
{
    setObjectName(u"submitWindow"_s);
    setWindowTitle(u"Submitting"_s);
    m_popUpBrowserWindow->bindTo(*m_control);
    buildActions();
    setCentralWidget(newContent());
    connectControl();
    restoreLayout();
}

SubmitWindow::~SubmitWindow() = default;

QAction *SubmitWindow::newAction(const QString &name, const QString &text,
                                 const QList<QKeySequence> &shortcuts, std::function<void()> run)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcuts(shortcuts);
    connect(action, &QAction::triggered, this, std::move(run));
    addAction(action);
    return action;
}

void SubmitWindow::buildActions()
{
    m_drawerAction =
        newAction(u"drawer"_s, u"Sites"_s, {u"F9"_s}, [this] { openDrawer(m_drawerAction->isChecked()); });
    m_drawerAction->setIcon(QIcon(u":/icons/sites.svg"_s));
    m_drawerAction->setCheckable(true);
    m_drawerAction->setToolTip(u"Show or hide the sites (F9)"_s);
    newAction(u"findSite"_s, u"Find a site"_s, {QKeySequence::Find}, [this] {
        openDrawer(true);
        m_sitesDrawer->focusFilter();
    });
    newAction(u"findField"_s, u"Find a field"_s, {u"Ctrl+J"_s}, [this] { m_fieldCopyView->focusFilter(); });
    newAction(u"address"_s, u"Address"_s, {u"Ctrl+L"_s}, [this] { m_browserBar->focusAddress(); });
    newAction(u"mark"_s, u"Mark"_s, {u"Ctrl+M"_s}, [this] { m_markSubmittedButton->click(); });
    newAction(u"removeMark"_s, u"Remove mark"_s, {u"Ctrl+Shift+M"_s},
              [this] { m_removeMarkButton->click(); });
    newAction(u"zoomIn"_s, u"Zoom in"_s, {QKeySequence::ZoomIn, u"Ctrl+="_s},
              [this] { zoom(m_qnWebView->zoomFactor() * zoomStep); });
    newAction(u"zoomOut"_s, u"Zoom out"_s, {QKeySequence::ZoomOut},
              [this] { zoom(m_qnWebView->zoomFactor() / zoomStep); });
    newAction(u"zoomReset"_s, u"Usual size"_s, {u"Ctrl+0"_s}, [this] { zoom(1); });
    newAction(u"close"_s, u"Close"_s, {QKeySequence::Close}, [this] { close(); });
}

QWidget *SubmitWindow::newContent()
{
    m_browserBar = new BrowserBar(*m_control, *m_qnWebView, m_drawerAction);
    m_sitesDrawer = new SitesDrawer(*m_control);
    m_fieldCopyView = new FieldCopyView(m_control->fieldCopyPanel());
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
    layout->addWidget(newSubmitRow());
    layout->addWidget(m_splitter, 1);
    layout->addWidget(newStatusRow());
    return content;
}

QWidget *SubmitWindow::newSubmitRow()
{
    m_submittingToField = new QLabel;
    m_submittingToField->setObjectName(u"submittingToField"_s);
    m_submittingToField->setTextFormat(Qt::PlainText);
    m_submittingToField->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont bold = m_submittingToField->font();
    bold.setBold(true);
    m_submittingToField->setFont(bold);

    m_markSubmittedButton = new QPushButton(QIcon(u":/icons/mark.svg"_s), widestMarkTitle);
    m_markSubmittedButton->setObjectName(u"markSubmittedButton"_s);
    m_markSubmittedButton->setToolTip(u"Note the selected site with the title's current version (Ctrl+M)"_s);
    m_markSubmittedButton->setMinimumWidth(m_markSubmittedButton->sizeHint().width());
    connect(m_markSubmittedButton, &QPushButton::clicked, m_control.get(), &SubmitControl::markSubmitted);
    m_removeMarkButton = new QPushButton(QIcon(u":/icons/remove-mark.svg"_s), u"Remove Mark"_s);
    m_removeMarkButton->setObjectName(u"removeMarkButton"_s);
    m_removeMarkButton->setToolTip(
        u"Forget that the title was submitted to the selected site (Ctrl+Shift+M)"_s);
    connect(m_removeMarkButton, &QPushButton::clicked, m_control.get(), &SubmitControl::removeMark);

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_submittingToField, 1);
    layout->addWidget(m_markSubmittedButton);
    layout->addWidget(m_removeMarkButton);
    return row;
}

QWidget *SubmitWindow::newPagePanel()
{
    auto *hint =
        new QLabel(u"Pages of sites are not loaded while errors are left in the title's PAD file.\n\n"
                   "Correct them in the editor, close this window and submit the title again."_s);
    hint->setObjectName(u"notLoadedHint"_s);
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    m_pageOrHint = new QStackedWidget;
    m_pageOrHint->addWidget(m_qnWebView);
    m_pageOrHint->addWidget(hint);
    m_pageOrHint->setMinimumWidth(320);
    return m_pageOrHint;
}

QWidget *SubmitWindow::newStatusRow()
{
    m_notice = new QLabel;
    m_notice->setObjectName(u"notice"_s);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progressBarView = new ProgView;
    m_progressBarView->setObjectName(u"progressBarView"_s);
    m_webViewLoadProgress = new ActivityIndicator;
    m_webViewLoadProgress->setObjectName(u"webViewLoadProgress"_s);
    m_webViewLoadProgress->hide();

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_notice, 3);
    layout->addWidget(m_progressBarView, 1);
    layout->addWidget(m_webViewLoadProgress);
    return row;
}

void SubmitWindow::connectControl()
{
    SubmitControl *control = m_control.get();
    connect(control, &SubmitControl::openSitesDrawer, this, [this] { openDrawer(true); });
    connect(control, &SubmitControl::loadStateChanged, this, &SubmitWindow::showLoadState);
    connect(control, &SubmitControl::submittingToFieldChanged, this, &SubmitWindow::showSubmittingTo);
    connect(control, &SubmitControl::markSubmittedButtonTitleChanged, this, &SubmitWindow::showMarkButtons);
    connect(control, &SubmitControl::selectedRowChanged, this, &SubmitWindow::showMarkButtons);
    connect(m_progressBarView, &ProgView::resized, this, [this](const QRectF &bounds) {
        m_control->setProgressBarBounds(bounds);
        m_control->windowDidResize();
    });
    connect(m_qnWebView, &WebEngineBrowser::notice, m_notice, &QLabel::setText);
    connect(&m_popUpBrowserWindow->browser(), &WebEngineBrowser::notice, m_notice, &QLabel::setText);
    qApp->installEventFilter(this);
    connect(control, &SubmitControl::closePopUpWindow, this,
            [this] { m_qnWebView->setPasteTarget(nullptr); });
    connect(m_fieldCopyView, &FieldCopyView::pressedByKeyboard, m_qnWebView,
            [this] { m_qnWebView->setFocus(); });
    showMarkButtons();
}

bool SubmitWindow::eventFilter(QObject *watched, QEvent *event)
{
    // The panel takes the focus from no page, but its window takes it from the other window. So what counts
    // is where the author last did something.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
        WebEngineBrowser &popUp = m_popUpBrowserWindow->browser();
        const auto *widget = watched->isWidgetType() ? static_cast<const QWidget *>(watched) : nullptr;
        if (popUp.isAncestorOf(widget))
            m_qnWebView->setPasteTarget(&popUp);
        else if (m_qnWebView->isAncestorOf(widget))
            m_qnWebView->setPasteTarget(nullptr);
        if (widget && (widget->window() == this || widget->window() == m_popUpBrowserWindow.get()))
            m_control->authorActed();
    }
    return QMainWindow::eventFilter(watched, event);
}

void SubmitWindow::showMarkButtons()
{
    m_markSubmittedButton->setText(m_control->markSubmittedButtonTitle());
    const int row = m_control->selectedRow();
    m_markSubmittedButton->setEnabled(row >= 0);
    m_removeMarkButton->setEnabled(m_control->submittedToArraySTR().value(row) == u"1");
}

void SubmitWindow::showSubmittingTo()
{
    m_submittingToField->setText(m_control->submittingToField());
}

void SubmitWindow::showLoadState()
{
    m_webViewLoadProgress->setValue(m_control->webViewLoadProgress());
    m_webViewLoadProgress->setVisible(m_control->continueViewUpdate());
}

void SubmitWindow::openDrawer(bool isOpen)
{
    m_drawerAction->setChecked(isOpen);
    m_sitesDrawer->setVisible(isOpen);
}

void SubmitWindow::zoom(double factor)
{
    m_qnWebView->setZoomFactor(factor);
    m_notice->setText(u"Zoom: %1 %"_s.arg(qRound(m_qnWebView->zoomFactor() * 100)));
    settings().setValue(zoomKey, m_qnWebView->zoomFactor());
}

void SubmitWindow::bringToFront()
{
    // Nothing is loaded while the process takes the window for closed.
    m_pageOrHint->setCurrentIndex(mwqnWOSi78tgsda ? 1 : 0);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SubmitWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    m_control->windowWillClose(); // Before the sheets go, or the next of them would come.
    for (QDialog *sheet : findChildren<QDialog *>())
        sheet->reject();
    m_qnWebView->stop();
    m_qnWebView->restWhileHidden();
    m_popUpBrowserWindow->close();
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

void SubmitWindow::saveLayout() const
{
    settings().setValue(geometryKey, saveGeometry());
    settings().setValue(splitterKey, m_splitter->saveState());
    settings().setValue(drawerKey, m_drawerAction->isChecked());
}

void SubmitWindow::restoreLayout()
{
    resize(usualSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
    if (!m_splitter->restoreState(settings().value(splitterKey).toByteArray()))
        m_splitter->setSizes({230, 780, 240});
    openDrawer(settings().value(drawerKey, true).toBool());
    m_qnWebView->setZoomFactor(settings().value(zoomKey, 1.0).toDouble());
}

} // namespace quillon
