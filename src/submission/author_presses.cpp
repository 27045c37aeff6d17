#include "submission/author_presses.h"

#include "submission/browser_module.h"
#include "submission/page_questions.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace quillon {

AuthorPresses::AuthorPresses(WindowBrowser &page, WindowBrowser &popUp, PageQuestions &questions)
    : m_page(page), m_popUp(popUp), m_questions(questions)
{
    qApp->installEventFilter(this);
}

bool AuthorPresses::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMouse = event->type() == QEvent::MouseButtonPress;
    if ((isMouse || event->type() == QEvent::KeyPress) && watched->isWidgetType())
        pressed(*static_cast<const QWidget *>(watched), isMouse);
    return QObject::eventFilter(watched, event);
}

void AuthorPresses::pressed(const QWidget &widget, bool isMouse)
{
    if (m_popUp.widget().isAncestorOf(&widget)) {
        m_page.setPasteTarget(&m_popUp);
        m_popUp.authorActed(isMouse);
    } else if (m_page.widget().isAncestorOf(&widget)) {
        m_page.setPasteTarget(nullptr);
        m_page.authorActed(isMouse);
    }
    const QWidget *window = widget.window();
    if (window == m_page.widget().window() || window == m_popUp.widget().window())
        m_questions.authorActed();
}

} // namespace quillon
