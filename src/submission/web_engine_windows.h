#pragma once

#include <QDeadlineTimer>
#include <QObject>

class QWebEngineNewWindowRequest;

namespace quillon {

class BrowserDelegate;
class WebEnginePage;

/// The windows that the page of one browser opens: one for each press of the author's, soon after it.
class WebEngineWindows : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// @p delegate is asked for the browser of a new window, which must be a WebEngineBrowser.
    void setDelegate(BrowserDelegate *delegate) { m_delegate = delegate; }

    /// Watches @p page too, until it goes.
    void setPage(WebEnginePage &page);

    /// The author has pressed a key or a mouse button in the page.
    void authorActed();

Q_SIGNALS:
    /// The page wanted to open a window without a press.
    void refused();

private:
    void open(QWebEngineNewWindowRequest &request);

    BrowserDelegate *m_delegate = nullptr;
    QDeadlineTimer m_mayOpen{0};
};

} // namespace quillon
