#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace quillon {

/// Whether a document may hold elements of this name.
using IsElementName = bool (*)(QByteArrayView name);

/// The first attribute of a start tag that was never closed, after the repair.
inline constexpr const char *unclosedMark = "quillon.unclosed";

/// @p utf8 made well-formed by the rules of TolerantXml, so that pugixml reads whatever comes out. No NUL may
/// be in it. With @p isElementName, a start tag of another name that was never closed is text.
QByteArray repairedXml(const QByteArray &utf8, IsElementName isElementName = nullptr);

} // namespace quillon
