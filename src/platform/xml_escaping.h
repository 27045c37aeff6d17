#pragma once

#include <QString>

namespace quillon {

/// Whether XML has a place for the character; not for control characters other than a tab and line ends.
constexpr bool isXmlCharacter(char32_t each)
{
    return each >= U' ' ? each != U'\uFFFE' && each != U'\uFFFF' && !QChar::isSurrogate(each)
                        : each == U'\t' || each == U'\n' || each == U'\r';
}

/// Whether @p content, put between two tags, leaves a document well-formed.
bool isWellFormedContent(const QString &content);

/// @p text as the content of an XML element: what would be markup is written as references. What XML has no
/// place for (control characters, halves of characters) becomes U+FFFD.
QString escapedXml(QStringView text);

/// The same of a text that was written with references already: those of XML itself, "&amp;" and "&#252;",
/// stay what they are.
QString escapedXmlBesidesReferences(QStringView text);

} // namespace quillon
