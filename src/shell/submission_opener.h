#pragma once

#include "widgets/qt_desktop.h"

#include <QObject>

#include <memory>

class QWebEngineProfile;

namespace quillon {

class DelayedCalls;
class MessageBoxSheets;
class OverviewController;
class SubmitWindow;
class ToolbarControl;

/// Makes the submission window, and with it the web engine, when it is first asked for: the engine takes its
/// time, and many runs do without.
class SubmissionOpener : public QObject
{
    Q_OBJECT
public:
    /// All must outlive the opener.
    SubmissionOpener(ToolbarControl &toolbar, OverviewController &overview, MessageBoxSheets &alerts,
                     DelayedCalls &delayedCalls);
    ~SubmissionOpener() override;

    /// Null before it was first asked for.
    [[nodiscard]] SubmitWindow *window() { return m_window.get(); }

    /// Closes the window if it is open.
    void close();

private:
    void open();
    void setTitle(const QString &title);
    void titleIsGone();

    MessageBoxSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    QtDesktop m_desktop;
    QString m_title;
    std::unique_ptr<QWebEngineProfile> m_profile; ///< Outlives the window's pages.
    std::unique_ptr<SubmitWindow> m_window;
};

} // namespace quillon
