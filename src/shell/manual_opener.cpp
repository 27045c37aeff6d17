#include "shell/manual_opener.h"

#include "shell/manual_topics.h"
#include "shell/manual_window.h"

#include <QApplication>
#include <QKeyEvent>

namespace quillon {

namespace {

/// The object names of what has the keyboard and of all that it stands in, from the inside out.
QStringList namesOfFocus()
{
    QStringList names;
    const QWidget *focus = QApplication::focusWidget();
    for (const QWidget *widget = focus ? focus : QApplication::activeWindow(); widget;
         widget = widget->parentWidget())
        names.append(widget->objectName());
    return names;
}

} // namespace

ManualOpener::ManualOpener(Desktop &desktop) : m_desktop(desktop)
{
    qApp->installEventFilter(this);
}

ManualOpener::~ManualOpener() = default;

void ManualOpener::open()
{
    const QString page = manual_topics::pageOf(namesOfFocus());
    if (!m_window)
        m_window = std::make_unique<ManualWindow>(m_desktop);
    m_window->open(page);
}

void ManualOpener::close()
{
    if (m_window)
        m_window->close();
}

bool ManualOpener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier) {
            open();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quillon
