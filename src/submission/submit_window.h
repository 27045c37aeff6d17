#pragma once

#include "submission/submit_control.h"

#include <QMainWindow>

class QLabel;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QWebEngineProfile;

namespace quillon {

class ActivityIndicator;
class BrowserBar;
class FieldCopyView;
class PopUpWindow;
class ProgView;
class SitesDrawer;
class WebEngineBrowser;

/// The submission window: the drawer with the sites, the page of the selected one, and the field copy panel.
class SubmitWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// All must outlive the window.
    SubmitWindow(QWebEngineProfile &profile, AlertSheets &alerts, Desktop &desktop,
                 DelayedCalls &delayedCalls);
    ~SubmitWindow() override;

    [[nodiscard]] SubmitControl &control() { return *m_control; }

    /// Shows the window above all others with the keyboard focus.
    void bringToFront();

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    QWidget *newContent();
    QWidget *newSubmitRow();
    QWidget *newPagePanel();
    QWidget *newStatusRow();
    void buildActions();
    QAction *newAction(const QString &name, const QString &text, const QList<QKeySequence> &shortcuts,
                       std::function<void()> run);
    void connectControl();
    void showMarkButtons();
    void showLoadState();
    void showSubmittingTo();
    void openDrawer(bool isOpen);
    void zoom(double factor);
    void restoreLayout();
    void saveLayout() const;

    WebEngineBrowser *m_qnWebView;
    std::unique_ptr<PopUpWindow> m_popUpBrowserWindow;
    std::unique_ptr<SubmitControl> m_control;

    QAction *m_drawerAction = nullptr;
    BrowserBar *m_browserBar = nullptr;
    SitesDrawer *m_sitesDrawer = nullptr;
    FieldCopyView *m_fieldCopyView = nullptr;
    QSplitter *m_splitter = nullptr;
    QStackedWidget *m_pageOrHint = nullptr;
    QLabel *m_submittingToField = nullptr;
    QPushButton *m_markSubmittedButton = nullptr;
    QPushButton *m_removeMarkButton = nullptr;
    QLabel *m_notice = nullptr;
    ProgView *m_progressBarView = nullptr;
    ActivityIndicator *m_webViewLoadProgress = nullptr;
};

} // namespace quillon
