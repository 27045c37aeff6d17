#pragma once

#include <QWidget>

class QAction;
class QLineEdit;

namespace quillon {

class BrowserEvents;
class CommandSet;
class HostLabel;
class PageLoad;
class WindowBrowser;

/// Buttons that go from page to page, the server of the page on show, and the address field.
///
/// The field shows what is typed or being loaded, whatever it names before its server; the server's name
/// beside it is that of the page alone.
class BrowserBar : public QWidget
{
    Q_OBJECT
public:
    /// @p events are those of @p browser; @p commands has those that the buttons stand for. All must outlive
    /// the bar.
    BrowserBar(PageLoad &load, WindowBrowser &browser, BrowserEvents &events, const CommandSet &commands,
               QWidget *parent = nullptr);

    void focusAddress();

private:
    void addButton(QAction *action);
    void showAddress();
    void takeAddress();

    PageLoad &m_load;
    WindowBrowser &m_browser;
    HostLabel *m_host;
    QLineEdit *m_urlField;
};

} // namespace quillon
