#pragma once

#include <QWidget>

class QAction;
class QLineEdit;

namespace quillon {

class CommandSet;
class PageLoad;
class WebEngineBrowser;

/// Buttons that go from page to page, and the address field.
class BrowserBar : public QWidget
{
    Q_OBJECT
public:
    /// @p commands has those that the buttons stand for. All must outlive the bar.
    BrowserBar(PageLoad &load, WebEngineBrowser &browser, const CommandSet &commands,
               QWidget *parent = nullptr);

    void focusAddress();

private:
    void addButton(QAction *action);
    void showAddress();
    void takeAddress();

    PageLoad &m_load;
    WebEngineBrowser &m_browser;
    QLineEdit *m_urlField;
};

} // namespace quillon
