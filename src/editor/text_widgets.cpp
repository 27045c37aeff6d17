#include "editor/text_widgets.h"

#include "widgets/validation_palette.h"

#include <QKeyEvent>

namespace quillon {

bool isLeftToWindow(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    event->ignore();
    return true;
}

QTextCharFormat redFormat(const QWidget &widget)
{
    QTextCharFormat format;
    format.setForeground(validationColour(widget.palette(), Colour::Red, QPalette::Base));
    format.setFontUnderline(true); // Not everybody sees the colour.
    return format;
}

} // namespace quillon
