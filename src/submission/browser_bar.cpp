#include "submission/browser_bar.h"

#include "submission/browser_events.h"
#include "submission/host_label.h"
#include "submission/page_load.h"
#include "widgets/command_set.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillon {

BrowserBar::BrowserBar(PageLoad &load, WindowBrowser &browser, BrowserEvents &events,
                       const CommandSet &commands, QWidget *parent)
    : QWidget(parent)
    , m_load(load)
    , m_browser(browser)
    , m_host(new HostLabel(u"pageHost"_s))
    , m_urlField(new QLineEdit)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_urlField->setObjectName(u"urlField"_s);
    m_urlField->setAccessibleName(tr("Address"));
    m_urlField->setToolTip(tr("Address of the page (Ctrl+L)"));
    m_urlField->setPlaceholderText(tr("Select a site, or type an address"));
    auto *caption = new QLabel(tr("&Address:"));
    caption->setBuddy(m_urlField);

    for (const QString &id : {u"drawer"_s, u"back"_s, u"forward"_s, u"reload"_s, u"stop"_s})
        addButton(commands.action(id));
    layout->addWidget(caption);
    layout->addWidget(m_host);
    layout->addWidget(m_urlField, 1);
    addButton(commands.action(u"openInDefaultBrowser"_s));

    connect(m_urlField, &QLineEdit::textEdited, &load, &PageLoad::setUrlField);
    connect(m_urlField, &QLineEdit::returnPressed, this, [this] {
        m_urlField->setModified(false);
        m_load.loadSiteToWebview(m_urlField->text());
    });
    connect(&load, &PageLoad::urlFieldChanged, this, &BrowserBar::showAddress);
    connect(&events, &BrowserEvents::stateChanged, this, &BrowserBar::takeAddress);
    connect(&events, &BrowserEvents::stateChanged, this, [this] { m_host->setHost(m_browser.host()); });
}

void BrowserBar::addButton(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setObjectName(action->objectName() + u"Button"_s);
    button->setAccessibleName(action->iconText());
    layout()->addWidget(button);
}

void BrowserBar::focusAddress()
{
    m_urlField->setFocus(Qt::ShortcutFocusReason);
    m_urlField->selectAll();
}

void BrowserBar::showAddress()
{
    if (m_urlField->text() == m_load.urlField())
        return;
    m_urlField->setText(m_load.urlField());
    m_urlField->setCursorPosition(0);
}

void BrowserBar::takeAddress()
{
    // Redirections and scripts change the address; what is being typed is the author's.
    if (!m_urlField->hasFocus() || !m_urlField->isModified())
        m_load.setUrlField(m_browser.currentUrl());
}

} // namespace quillon
