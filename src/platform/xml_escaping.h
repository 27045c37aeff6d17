#pragma once

#include <QString>

namespace quillon {

/// @p text as the content of an XML element: what would be markup is written as references. What XML has no
/// place for (control characters, halves of characters) becomes U+FFFD.
QString escapedXml(QStringView text);

/// The same of a text that was written with references already: those of XML itself, "&amp;" and "&#252;",
/// stay what they are.
QString escapedXmlBesidesReferences(QStringView text);

} // namespace quillon
