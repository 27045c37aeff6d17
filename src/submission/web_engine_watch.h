#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace quillon {

class WebEnginePage;

/// Whether the page of one browser answers. One that keeps its process busy does nothing any more, and nor do
/// the other pages of its site; it is looked at while it is on show and waits for nobody.
class WebEngineWatch : public QObject
{
    Q_OBJECT
public:
    explicit WebEngineWatch(QObject *parent = nullptr);

    /// Looks every second, or not at all.
    void setRunning(bool isRunning);

    /// From now on all is about @p page, which answers.
    void setPage(WebEnginePage &page);

    /// Ends the process that shows the page, at once.
    void endProcess();

Q_SIGNALS:
    /// Another second has passed.
    void looked();
    /// The page has not answered for some seconds, or has again.
    void hangChanged(bool hangs);

private:
    void look();
    void setHangs(bool hangs);
    void takeAnswer();

    QPointer<WebEnginePage> m_page;
    QTimer m_looks;
    QElapsedTimer m_sinceQuestion; ///< Valid while the page owes an answer.
    int m_question = 0;            ///< Number of what the page is asked, again and again until it answers.
    bool m_hangs = false;
};

} // namespace quillon
