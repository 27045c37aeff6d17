#pragma once

#include "submission/browser.h"
#include "submission/script_alerts.h"

namespace quillon {

class AlertSheets;

/// What pages tell the author and ask, in sheets on the submission window; all windows of pages count as one.
class PageQuestions
{
public:
    /// @p alerts must outlive the questions.
    explicit PageQuestions(AlertSheets &alerts) : m_alerts(alerts), m_scriptAlerts(alerts) {}

    /// See BrowserDelegate.
    void runJavaScriptAlertPanel(const QString &message) { m_scriptAlerts.show(message); }
    void runJavaScriptConfirmPanel(const QString &message, BrowserDelegate::Confirmed confirmed);
    void runOpenPanelForFileButton(BrowserDelegate::FileChosen chosen);

    /// The author has pressed a key or a mouse button in one of the windows.
    void authorActed() { m_scriptAlerts.authorActed(); }
    /// Drops what has not been shown.
    void clear() { m_scriptAlerts.clear(); }

private:
    AlertSheets &m_alerts;
    ScriptAlerts m_scriptAlerts;
};

} // namespace quillon
