#pragma once

#include "submission/submit_control.h"

#include <QMainWindow>

class QLabel;
class QSplitter;
class QStackedWidget;

namespace quillon {

class AuthorPresses;
class BrowserBar;
class BrowserEngine;
class BrowserEvents;
class CommandSet;
class FieldCopyView;
class LoadStatusRow;
class PopUpWindow;
class SitesDrawer;
class TourControl;
class WindowBrowser;

/// The submission window: the drawer with the sites, the page of the selected one, and the field copy panel.
class SubmitWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// All must outlive the window.
    SubmitWindow(BrowserEngine &engine, AlertSheets &alerts, Desktop &desktop, DelayedCalls &delayedCalls);
    ~SubmitWindow() override;

    [[nodiscard]] SubmitControl &control() { return *m_control; }
    [[nodiscard]] TourControl &tour() { return *m_tour; }
    [[nodiscard]] WindowBrowser &browser() { return m_qnWebView; }

    /// Shows the window above all others with the keyboard focus.
    void bringToFront();

    /// Each puts the keyboard focus into the field that finds one.
    void findSite();
    void findField();
    void findAddress();
    /// Proposes what to fill into the form of the page, in a window of its own.
    void fillForm();
    /// Opens what became of the title on the selected site, to be seen and noted.
    void openLedger();
    /// Opens what the author learned of the selected site, to be seen and noted.
    void openSiteNotes();
    /// Shows the drawer with the sites, or hides it.
    void toggleDrawer();
    /// Shows pages in that part of their usual size, from now on and in later runs.
    void zoom(double factor);
    /// Asks whether to clear what pages have stored, and does so.
    void clearPagesData();

Q_SIGNALS:
    /// The window is drawn for the first time since it was shown.
    void drawn();
    /// The author wants to know what has become of the sites, or of what the title's addresses name.
    void checkSites();
    void checkTitle();

protected:
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void buildCommands();
    QWidget *newContent();
    QWidget *newPagePanel();
    void connectControl();
    void showStates();
    void showPageOrHint();
    void openDrawer(bool isOpen);
    void restoreLayout();
    void saveLayout() const;

    BrowserEngine &m_engine;
    AlertSheets &m_alerts;
    BrowserEvents *m_events;
    WindowBrowser &m_qnWebView;
    std::unique_ptr<PopUpWindow> m_popUpBrowserWindow;
    std::unique_ptr<SubmitControl> m_control;
    std::unique_ptr<TourControl> m_tour;

    CommandSet *m_commands = nullptr;
    BrowserBar *m_browserBar = nullptr;
    SitesDrawer *m_sitesDrawer = nullptr;
    FieldCopyView *m_fieldCopyView = nullptr;
    LoadStatusRow *m_statusRow = nullptr;
    QSplitter *m_splitter = nullptr;
    QStackedWidget *m_pageOrHint = nullptr;
    QLabel *m_notLoadedHint = nullptr;
    bool m_isDrawn = false;
    std::unique_ptr<AuthorPresses> m_presses; ///< Goes first.
};

} // namespace quillon
