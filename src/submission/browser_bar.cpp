#include "submission/browser_bar.h"

#include "store/process_state.h"
#include "submission/submit_control.h"
#include "submission/web_engine_browser.h"

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillon {

BrowserBar::BrowserBar(SubmitControl &control, WebEngineBrowser &browser, QAction *drawerAction,
                       QWidget *parent)
    : QWidget(parent), m_control(control), m_browser(browser), m_urlField(new QLineEdit)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    buildActions();
    m_urlField->setObjectName(u"urlField"_s);
    m_urlField->setAccessibleName(u"Address"_s);
    m_urlField->setToolTip(u"Address of the page (Ctrl+L)"_s);
    m_urlField->setPlaceholderText(u"Select a site, or type an address"_s);
    auto *caption = new QLabel(u"&Address:"_s);
    caption->setBuddy(m_urlField);

    for (QAction *action : {drawerAction, m_back, m_forward, m_reload, m_stop})
        addButton(action);
    layout->addWidget(caption);
    layout->addWidget(m_urlField, 1);
    addButton(m_openInDefaultBrowser);

    connect(m_urlField, &QLineEdit::textEdited, &control, &SubmitControl::setUrlField);
    connect(m_urlField, &QLineEdit::returnPressed, this, [this] {
        m_urlField->setModified(false);
        m_control.loadSiteToWebview(m_urlField->text());
    });
    connect(&control, &SubmitControl::urlFieldChanged, this, &BrowserBar::showAddress);
    connect(&browser, &WebEngineBrowser::stateChanged, this, &BrowserBar::takeAddress);
    connect(&browser, &WebEngineBrowser::stateChanged, this, &BrowserBar::showState);
    showState();
}

void BrowserBar::buildActions()
{
    const auto unlessClosed = [this](void (WebEngineBrowser::*go)()) {
        return [this, go] {
            if (!mwqnWOSi78tgsda)
                (m_browser.*go)();
        };
    };
    m_back =
        newAction(u"back"_s, u"Back"_s, u"back"_s, {u"Alt+Left"_s}, unlessClosed(&WebEngineBrowser::goBack));
    m_forward = newAction(u"forward"_s, u"Forward"_s, u"forward"_s, {u"Alt+Right"_s},
                          unlessClosed(&WebEngineBrowser::goForward));
    m_reload = newAction(u"reload"_s, u"Reload"_s, u"reload"_s, {u"F5"_s, u"Ctrl+R"_s},
                         unlessClosed(&WebEngineBrowser::reload));
    m_stop = newAction(u"stop"_s, u"Stop"_s, u"stop"_s, {u"Esc"_s}, [this] { m_browser.stop(); });
    m_openInDefaultBrowser =
        newAction(u"openInDefaultBrowser"_s, u"Open in your own browser"_s, u"open-external"_s, {u"Ctrl+O"_s},
                  [this] { m_control.openInDefaultBrowserAction(); });
}

QAction *BrowserBar::newAction(const QString &name, const QString &text, const QString &icon,
                               const QList<QKeySequence> &shortcuts, std::function<void()> run)
{
    auto *action = new QAction(QIcon(u":/icons/%1.svg"_s.arg(icon)), text, this);
    action->setObjectName(name);
    action->setShortcuts(shortcuts);
    action->setToolTip(u"%1 (%2)"_s.arg(text, shortcuts.first().toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, std::move(run));
    addAction(action);
    return action;
}

void BrowserBar::addButton(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setObjectName(action->objectName() + u"Button"_s);
    button->setAccessibleName(action->text());
    layout()->addWidget(button);
}

void BrowserBar::focusAddress()
{
    m_urlField->setFocus(Qt::ShortcutFocusReason);
    m_urlField->selectAll();
}

void BrowserBar::showAddress()
{
    if (m_urlField->text() == m_control.urlField())
        return;
    m_urlField->setText(m_control.urlField());
    m_urlField->setCursorPosition(0);
}

void BrowserBar::takeAddress()
{
    // Redirections and scripts change the address; what is being typed is the author's.
    if (!m_urlField->hasFocus() || !m_urlField->isModified())
        m_control.setUrlField(m_browser.currentUrl());
}

void BrowserBar::showState()
{
    m_back->setEnabled(m_browser.canGoBack());
    m_forward->setEnabled(m_browser.canGoForward());
    m_reload->setEnabled(!m_browser.currentUrl().isEmpty() && !m_browser.isLoading());
    // The key is the page's while nothing is to be stopped.
    m_stop->setEnabled(m_browser.isLoading());
}

} // namespace quillon
