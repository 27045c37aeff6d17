#include "editor/field_watch.h"

#include "editor/editor.h"
#include "findings/advice.h"
#include "findings/chosen_packs.h"
#include "platform/plain_text.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether the author goes elsewhere: another window, a menu or a list that opens does not end the work.
bool isLeaving(const QFocusEvent &event)
{
    return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason &&
           event.reason() != Qt::MenuBarFocusReason;
}

} // namespace

FieldWatch::FieldWatch(Editor &editor, QObject *parent) : QObject(parent), m_editor(editor) {}

void FieldWatch::add(QWidget *widget, FieldId field)
{
    QList<QObject *> parts = {widget};
    if (const auto *area = qobject_cast<QAbstractScrollArea *>(widget))
        parts.append(area->viewport());
    for (QLineEdit *line : widget->findChildren<QLineEdit *>())
        parts.append(line);
    for (QObject *part : std::as_const(parts)) {
        m_fields[part] = field;
        part->installEventFilter(this);
    }
}

QString FieldWatch::told(FieldId field) const
{
    if (!m_editor.loaded())
        return {};
    const chosen_packs::Chosen chosen = chosen_packs::now();
    return findings::told(field, m_editor.errors(), {.form = m_editor.form(), .packs = chosen.packs});
}

bool FieldWatch::eventFilter(QObject *watched, QEvent *event)
{
    const auto field = m_fields.constFind(watched);
    if (field == m_fields.cend())
        return false;
    // Single-line fields tell by themselves, once they are put in order.
    if (event->type() == QEvent::FocusOut && padField(*field).kind != FieldKind::Text &&
        isLeaving(*static_cast<QFocusEvent *>(event)))
        m_editor.leave(*field);
    if (event->type() == QEvent::FocusIn)
        Q_EMIT entered(*field);
    if (event->type() == QEvent::ToolTip) {
        const QString text = told(*field);
        if (!text.isEmpty())
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text),
                               qobject_cast<QWidget *>(watched));
        return !text.isEmpty();
    }
    if (event->type() != QEvent::ContextMenu)
        return false;
    QMenu *menu = newMenu(watched, *field);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(static_cast<QContextMenuEvent *>(event)->globalPos());
    return true;
}

QMenu *FieldWatch::newMenu(QObject *widget, FieldId field)
{
    QObject *parent = widget->parent();
    QMenu *menu = nullptr;
    if (auto *line = qobject_cast<QLineEdit *>(widget))
        menu = line->createStandardContextMenu();
    else if (auto *text = qobject_cast<QPlainTextEdit *>(widget))
        menu = text->createStandardContextMenu();
    else if (auto *around = qobject_cast<QPlainTextEdit *>(parent))
        menu = around->createStandardContextMenu();
    else
        menu = new QMenu(qobject_cast<QWidget *>(widget));
    if (!menu->isEmpty())
        menu->addSeparator();
    QAction *earlier = menu->addAction(tr("&Earlier Texts…"));
    earlier->setObjectName(u"earlierTexts"_s);
    connect(earlier, &QAction::triggered, this, [this, field] { Q_EMIT earlierTextsRequested(field); });
    return menu;
}

} // namespace quillon
