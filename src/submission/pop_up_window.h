#pragma once

#include <QWidget>

class QLabel;
class QWebEngineProfile;

namespace quillon {

class PasteQueue;
class SubmitControl;
class WebEngineBrowser;

/// The one window for all pages that ask for a window of their own, with the address of what it shows and a
/// button that closes it.
///
/// Its title begins with the page's server. It takes the keyboard only from a page.
class PopUpWindow : public QWidget
{
    Q_OBJECT
public:
    /// @p profile and @p pastes, which all browsers share, must outlive the window.
    PopUpWindow(QWebEngineProfile &profile, PasteQueue &pastes);

    [[nodiscard]] WebEngineBrowser &browser() { return *m_browser; }

    /// Opens and closes the window as @p control says. The window keeps clear of @p panel, which is of use
    /// beside it, where there is room on the screen.
    void bindTo(SubmitControl &control, const QWidget &panel);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void open(const QWidget &panel);
    void keepClearOf(const QWidget &panel);
    void showAddress();
    void showTitle();

    WebEngineBrowser *m_browser;
    QLabel *m_address;
    QString m_title; ///< As the page has it.
    SubmitControl *m_control = nullptr;
};

} // namespace quillon
