#include "sites/add_edit_panel.h"

#include "platform/alert_sheets.h"
#include "platform/delayed_calls.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"

using namespace Qt::StringLiterals;

namespace quillon {

using Field = AddEditPanelContent::Field;

AddEditPanel::AddEditPanel(AlertSheets &alerts, DelayedCalls &delayedCalls)
    : m_alerts(alerts), m_delayedCalls(delayedCalls)
{
}

void AddEditPanel::addNewSiteAction()
{
    open(u"add"_s, tr("Add A New Submission Site"), {});
}

void AddEditPanel::editSite(const Site &site)
{
    m_editedSite = site;
    open(u"edit"_s, tr("Editing Submission Site"), site);
}

void AddEditPanel::open(const QString &mode, const QString &title, const Site &site)
{
    m_reopens = false;
    m_content = {.isOpen = true,
                 .addEditSentFrom = mode,
                 .addEditPanelTitle = title,
                 .siteNameField = site.name,
                 .siteURLField = site.url};
    Q_EMIT changed();
}

void AddEditPanel::cancelAddEditAction()
{
    close();
}

void AddEditPanel::close()
{
    m_content = {};
    Q_EMIT changed();
}

void AddEditPanel::addSaveButtonAction(const QString &name, const QString &url)
{
    if (!m_content.isOpen)
        return;
    m_content.siteNameField = name;
    m_content.siteURLField = site_editing::normalisedUrl(url);
    addEditSiteCheckAndWrite();
    NotificationCenter::defaultCenter().post(notification::mwqnLSLsc);
}

void AddEditPanel::addEditSiteCheckAndWrite()
{
    const SiteEdit edit =
        m_content.addEditSentFrom == u"add"
            ? site_editing::addSite(m_content.siteNameField, m_content.siteURLField)
            : site_editing::editSite(m_editedSite, m_content.siteNameField, m_content.siteURLField);
    switch (edit.outcome) {
    case SiteEdit::Done:
        close();
        m_alerts.show(SheetWindow::Preferences, {edit.sentence});
        Q_EMIT sitesChanged();
        break;
    case SiteEdit::NotStored:
        Q_EMIT changed();
        Q_EMIT sitesChanged(); // An edit may have been done by half.
        break;
    default:
        refuse(edit);
    }
}

void AddEditPanel::refuse(const SiteEdit &edit)
{
    const bool nameIsEmpty = m_content.siteNameField.count(u' ') == m_content.siteNameField.size();
    const bool urlIsWrong =
        edit.outcome == SiteEdit::UrlExists || (edit.outcome == SiteEdit::Empty && !nameIsEmpty);
    m_content.isOpen = false;
    m_content.focus = urlIsWrong ? Field::Url : Field::Name;
    m_content.selectsWholeText = edit.outcome == SiteEdit::Empty;
    m_reopens = true;
    Q_EMIT changed();
    m_alerts.show(SheetWindow::Preferences, {edit.sentence},
                  [this](AlertAnswer) { addEditErrorReopenForInput(); });
}

void AddEditPanel::addEditErrorReopenForInput()
{
    m_delayedCalls.after(resultDelay, this, [this] { aedpause(); });
}

void AddEditPanel::aedpause()
{
    if (!std::exchange(m_reopens, false))
        return;
    m_content.isOpen = true;
    Q_EMIT changed();
}

} // namespace quillon
