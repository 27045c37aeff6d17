#pragma once

#include <QObject>

namespace quillon {

class PageQuestions;
class WindowBrowser;

/// Watches where the author presses a key or a mouse button.
///
/// The panel takes the focus from no page, but its window takes it from the other window. So values go into
/// the page that the author last pressed something in.
class AuthorPresses : public QObject
{
    Q_OBJECT
public:
    /// @p page pastes for both; @p questions are those of both windows. All must outlive the watch.
    AuthorPresses(WindowBrowser &page, WindowBrowser &popUp, PageQuestions &questions);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pressed(const QWidget &widget, bool isMouse);

    WindowBrowser &m_page;
    WindowBrowser &m_popUp;
    PageQuestions &m_questions;
};

} // namespace quillon
