#pragma once

#include <QWidget>

class QAction;
class QLineEdit;

namespace quillon {

class SubmitControl;
class WebEngineBrowser;

/// Buttons that go from page to page, and the address field.
class BrowserBar : public QWidget
{
    Q_OBJECT
public:
    /// @p drawerAction shows and hides the drawer with the sites.
    BrowserBar(SubmitControl &control, WebEngineBrowser &browser, QAction *drawerAction,
               QWidget *parent = nullptr);

    void focusAddress();

private:
    QAction *newAction(const QString &name, const QString &text, const QString &icon,
                       const QList<QKeySequence> &shortcuts, std::function<void()> run);
    void addButton(QAction *action);
    void buildActions();
    void showAddress();
    void takeAddress();
    void showState();

    SubmitControl &m_control;
    WebEngineBrowser &m_browser;
    QAction *m_back = nullptr;
    QAction *m_forward = nullptr;
    QAction *m_reload = nullptr;
    QAction *m_stop = nullptr;
    QAction *m_openInDefaultBrowser = nullptr;
    QLineEdit *m_urlField;
};

} // namespace quillon
