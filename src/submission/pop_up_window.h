#pragma once

#include <QWidget>

class QLabel;

namespace quillon {

class BrowserEngine;
class BrowserEvents;
class HostLabel;
class SubmitControl;
class WindowBrowser;

/// The one window for all pages that ask for a window of their own, with the server and the address of what
/// it shows and a button that closes it.
///
/// Its title begins with the page's server. It takes the keyboard only from a page.
class PopUpWindow : public QWidget
{
    Q_OBJECT
public:
    /// @p engine must outlive the window.
    explicit PopUpWindow(BrowserEngine &engine);

    [[nodiscard]] WindowBrowser &browser() { return m_browser; }
    [[nodiscard]] BrowserEvents &events() { return *m_events; }

    /// Opens and closes the window as @p control says. The window takes the keyboard from @p page, and keeps
    /// clear of @p panel, which is of use beside it, where there is room on the screen.
    void bindTo(SubmitControl &control, const QWidget &page, const QWidget &panel);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void open(const QWidget &page, const QWidget &panel);
    void keepClearOf(const QWidget &panel);
    void showAddress();
    void showTitle();

    BrowserEvents *m_events;
    WindowBrowser &m_browser;
    HostLabel *m_host;
    QLabel *m_address;
    QString m_title; ///< As the page has it.
    SubmitControl *m_control = nullptr;
};

} // namespace quillon
