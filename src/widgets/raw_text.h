#pragma once

#include <QPlainTextEdit>

namespace quillon {

/// The text in @p widget; QPlainTextEdit::toPlainText() would make blanks of no-break spaces.
inline QString rawText(const QPlainTextEdit &widget)
{
    return widget.document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

} // namespace quillon
