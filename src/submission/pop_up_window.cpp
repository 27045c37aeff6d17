#include "submission/pop_up_window.h"

#include "platform/plain_text.h"
#include "platform/settings.h"
#include "submission/browser_events.h"
#include "submission/host_label.h"
#include "submission/load_error_page.h"
#include "submission/submit_control.h"
#include "widgets/plain_tool_tip.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"popUpBrowserWindow/geometry"_s;
constexpr QSize usualSize(760, 560);
constexpr qsizetype longestTitle = 100;
constexpr int frameRoom =
    16; ///< For the frames of two windows; how wide they are is known when they are shown.

} // namespace

PopUpWindow::PopUpWindow(BrowserEngine &engine)
    : m_events(new BrowserEvents)
    , m_browser(engine.newBrowser(u"popUpWebView"_s, *m_events))
    , m_host(new HostLabel(u"popUpHost"_s))
    , m_address(new QLabel)
{
    m_events->setParent(&m_browser.widget()); // It may be told of something until then.
    setObjectName(u"popUpBrowserWindow"_s);
    setWindowTitle(tr("Window of the page"));
    m_address->setObjectName(u"popUpAddress"_s);
    m_address->setTextFormat(Qt::PlainText);
    m_address->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_address->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto *close = new QPushButton(tr("&Close"));
    close->setObjectName(u"closePopUpWindowButton"_s);
    close->setToolTip(tr("Close this window (Ctrl+W)"));
    auto *closeKey = new QAction(this);
    closeKey->setShortcut(QKeySequence::Close);
    addAction(closeKey);

    auto *row = new QHBoxLayout;
    row->addWidget(m_host);
    row->addWidget(m_address, 1);
    row->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(&m_browser.widget(), 1);

    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(closeKey, &QAction::triggered, this, &QWidget::close);
    connect(m_events, &BrowserEvents::closeRequested, this, &QWidget::close);
    connect(m_events, &BrowserEvents::stateChanged, this, &PopUpWindow::showAddress);
    connect(m_events, &BrowserEvents::stateChanged, this, &PopUpWindow::showTitle);
    connect(m_events, &BrowserEvents::titleChanged, this, [this](const QString &title) {
        m_title = title;
        showTitle();
    });
    connect(m_events, &BrowserEvents::loadFailed, this, [this](const QString &description) {
        m_browser.loadHtml(loadErrorPage(description), m_browser.currentUrl());
    });
    resize(usualSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
}

void PopUpWindow::bindTo(SubmitControl &control, const QWidget &page, const QWidget &panel)
{
    m_control = &control;
    connect(&control, &SubmitControl::openPopUpWindow, this, [this, &page, &panel] { open(page, panel); });
    connect(&control, &SubmitControl::closePopUpWindow, this, &QWidget::hide);
}

void PopUpWindow::open(const QWidget &page, const QWidget &panel)
{
    // What the author types elsewhere in the program goes on where it is typed.
    const QWidget *const focus = QApplication::focusWidget();
    const bool takesKeyboard = page.isAncestorOf(focus) || m_browser.widget().isAncestorOf(focus);
    setAttribute(Qt::WA_ShowWithoutActivating, !takesKeyboard);
    if (!isVisible())
        keepClearOf(panel);
    QWidget *const active = QApplication::activeWindow();
    show();
    if (!takesKeyboard) {
        if (active && active != this)
            active->activateWindow(); // Some window systems activate what they show all the same.
        return;
    }
    raise();
    activateWindow();
    m_browser.widget().setFocus();
}

void PopUpWindow::keepClearOf(const QWidget &panel)
{
    const QRect kept(panel.mapToGlobal(QPoint()), panel.size());
    if (!frameGeometry().intersects(kept))
        return;
    const QRect screenArea = panel.screen()->availableGeometry();
    const int left = kept.left() - screenArea.left() - frameRoom;
    const int right = screenArea.right() - kept.right() - frameRoom;
    const int room = std::max(left, right);
    if (room < minimumSizeHint().width())
        return;
    resize(std::min(width(), room), height());
    move(left >= right ? kept.left() - frameRoom - width() : kept.right() + frameRoom, y());
}

void PopUpWindow::showAddress()
{
    m_host->setHost(m_browser.host());
    m_address->setText(m_browser.currentUrl());
    setPlainToolTip(*m_address, m_browser.currentUrl());
}

void PopUpWindow::showTitle()
{
    const QString host = m_browser.host();
    const QString title = plainLine(m_title, longestTitle);
    setWindowTitle(host.isEmpty()    ? tr("Window of the page")
                   : title.isEmpty() ? host
                                     : plainWindowTitle(u"%1 – “%2”"_s.arg(host, title)));
}

void PopUpWindow::closeEvent(QCloseEvent *event)
{
    settings().setValue(geometryKey, saveGeometry());
    m_browser.renew(); // What nobody sees shall not go on.
    m_control->closePopUpWindowAction();
    event->accept();
}

} // namespace quillon
