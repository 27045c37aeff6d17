#pragma once

#include <QString>

/// Texts of the author's and of files, for places that would read something else into some of them.
namespace quillon {

/// @p text for a tool tip that shows it as it stands: tool tips would take a text with tags in it for markup.
inline QString plainToolTip(const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

/// @p text for the title of a window, which would take a bracketed asterisk for the mark of unsaved changes.
inline QString plainWindowTitle(QString text)
{
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

} // namespace quillon
