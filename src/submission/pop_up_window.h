#pragma once

#include <QWidget>

class QLabel;
class QWebEngineProfile;

namespace quillon {

class SubmitControl;
class WebEngineBrowser;

/// The one window for all pages that ask for a window of their own, with the address of what it shows and a
/// button that closes it.
class PopUpWindow : public QWidget
{
    Q_OBJECT
public:
    /// @p profile must outlive the window.
    explicit PopUpWindow(QWebEngineProfile &profile);

    [[nodiscard]] WebEngineBrowser &browser() { return *m_browser; }

    /// Opens and closes the window as @p control says.
    void bindTo(SubmitControl &control);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showAddress();

    WebEngineBrowser *m_browser;
    QLabel *m_address;
    SubmitControl *m_control = nullptr;
};

} // namespace quillon
