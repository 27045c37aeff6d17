#include "submission/pop_up_window.h"

#include "platform/settings.h"
#include "submission/load_error_page.h"
#include "submission/submit_control.h"
#include "submission/web_engine_browser.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

const QString geometryKey = u"popUpBrowserWindow/geometry"_s;
constexpr QSize usualSize(760, 560);

} // namespace

PopUpWindow::PopUpWindow(QWebEngineProfile &profile)
    : m_browser(new WebEngineBrowser(profile, u"popUpWebView"_s)), m_address(new QLabel)
{
    setObjectName(u"popUpBrowserWindow"_s);
    setWindowTitle(u"Window of the page"_s);
    m_address->setObjectName(u"popUpAddress"_s);
    m_address->setTextFormat(Qt::PlainText);
    m_address->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_address->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto *close = new QPushButton(u"&Close"_s);
    close->setObjectName(u"closePopUpWindowButton"_s);
    close->setToolTip(u"Close this window (Ctrl+W)"_s);
    auto *closeKey = new QAction(this);
    closeKey->setShortcut(QKeySequence::Close);
    addAction(closeKey);

    auto *row = new QHBoxLayout;
    row->addWidget(m_address, 1);
    row->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(m_browser, 1);

    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(closeKey, &QAction::triggered, this, &QWidget::close);
    connect(m_browser, &WebEngineBrowser::closeRequested, this, &QWidget::close);
    connect(m_browser, &WebEngineBrowser::stateChanged, this, &PopUpWindow::showAddress);
    connect(m_browser, &WebEngineBrowser::titleChanged, this, &QWidget::setWindowTitle);
    connect(m_browser, &WebEngineBrowser::loadFailed, this, [this](const QString &description) {
        m_browser->loadHtml(loadErrorPage(description), m_browser->currentUrl());
    });
    resize(usualSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings().value(geometryKey).toByteArray());
}

void PopUpWindow::bindTo(SubmitControl &control)
{
    m_control = &control;
    connect(&control, &SubmitControl::openPopUpWindow, this, [this] {
        show();
        raise();
        activateWindow();
        m_browser->setFocus();
    });
    connect(&control, &SubmitControl::closePopUpWindow, this, &QWidget::hide);
}

void PopUpWindow::showAddress()
{
    m_address->setText(m_browser->currentUrl());
    m_address->setToolTip(m_browser->currentUrl().toHtmlEscaped());
}

void PopUpWindow::closeEvent(QCloseEvent *event)
{
    settings().setValue(geometryKey, saveGeometry());
    m_browser->renew(); // What nobody sees shall not go on.
    m_control->closePopUpWindowAction();
    event->accept();
}

} // namespace quillon
