#pragma once

#include <QString>

/// Texts of the author's, of files and of pages, for places that would read something else into some of them.
namespace quillon {

/// @p text for a tool tip that shows it as it stands, blanks and line breaks included: tool tips would take a
/// text with tags in it for markup.
inline QString plainToolTip(const QString &text)
{
    return text.isEmpty()
               ? QString()
               : QStringLiteral("<span style=\"white-space: pre-wrap\">%1</span>").arg(text.toHtmlEscaped());
}

/// @p text for the title of a window, which would take a bracketed asterisk for the mark of unsaved changes.
inline QString plainWindowTitle(QString text)
{
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// Whether @p unit is one that nobody sees: a control character, a break, or one that turns the direction of
/// writing.
inline bool isUnseen(QChar unit)
{
    const auto category = unit.category();
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

/// @p text as one line of at most @p longest UTF-16 units, for texts of strangers: what breaks a line or
/// turns the direction of writing is a blank.
inline QString plainLine(const QString &text, qsizetype longest)
{
    QString line = text.left(longest);
    for (QChar &unit : line) {
        if (isUnseen(unit))
            unit = u' ';
    }
    return line.simplified();
}

/// The picture that Unicode has of the control character @p control; those of the second set have none.
inline QChar controlPicture(QChar control)
{
    constexpr char16_t firstPicture = u'\x2400', deletePicture = u'\x2421';
    if (control == u'\x7f')
        return deletePicture;
    return control < u' ' ? QChar(firstPicture + control.unicode()) : QChar::ReplacementCharacter;
}

/// The beginning of @p text, at most @p longest UTF-16 units, with a picture of each character that would not
/// be seen or that turns the direction of writing: for one line that tells what there is.
inline QString visibleLine(const QString &text, qsizetype longest)
{
    QString line = text.left(longest);
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    for (QChar &unit : line) {
        if (isUnseen(unit))
            unit = controlPicture(unit);
    }
    return line;
}

} // namespace quillon
