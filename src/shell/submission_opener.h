#pragma once

#include "platform/result.h"
#include "submission/browser_loading.h"
#include "submission/late_engine.h"
#include "widgets/qt_desktop.h"

#include <QObject>

#include <memory>

namespace quillon {

class DelayedCalls;
class MessageBoxSheets;
class OverviewController;
class SubmitWindow;
class ToolbarControl;

/// Makes the submission window when that is first asked for, and loads the web engine when the window is
/// drawn: the engine takes its time and memory, and many runs do without.
///
/// Without the engine's package a sheet says what to install, instead of the window, and the next attempt
/// looks anew. What can only be found out by loading the engine takes the window away again.
class SubmissionOpener : public QObject
{
    Q_OBJECT
public:
    /// All must outlive the opener; @p browserModule is the path of the module with the engine.
    SubmissionOpener(ToolbarControl &toolbar, OverviewController &overview, MessageBoxSheets &alerts,
                     DelayedCalls &delayedCalls, QString browserModule = browserModulePath());
    ~SubmissionOpener() override;

    /// Null before it was first asked for.
    [[nodiscard]] SubmitWindow *window() { return m_window.get(); }

    /// Closes the window if it is open.
    void close();

private:
    void open();
    void makeWindow();
    void bringPages();
    Result<> loadEngine();
    void beginEngine();
    void refuse(const QString &reason);
    void checkSites();
    void checkTitle();
    std::unique_ptr<Visitor> newVisitor();
    void tell(const Error &error);
    void setTitle(const QString &title);
    void titleIsGone();

    MessageBoxSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    QtDesktop m_desktop;
    QString m_title;
    QString m_browserModule;
    BrowserModule *m_module = nullptr; ///< Of the engine, once it is loaded.
    LateEngine m_engine;               ///< Outlives the window's pages.
    std::unique_ptr<SubmitWindow> m_window;
};

} // namespace quillon
