#pragma once

#include "platform/string_dictionary.h"

#include <QByteArray>

#include <optional>

/// XML property lists whose root is one dictionary of texts.
namespace quillon::property_list {

/// A property list is not read when it is larger (bytes) or nests deeper than this; ours nest two deep.
inline constexpr qsizetype maxSize = 16 * 1024 * 1024;
inline constexpr int maxDepth = 32;

/// The dictionary in @p bytes; none when they are malformed, too large, nested too deep or no dictionary.
/// Entries whose value is no text are left out.
std::optional<StringDictionary> read(const QByteArray &bytes);

/// The XML form of @p dictionary, entries in its order. No entries give emptyText().
QByteArray write(const StringDictionary &dictionary);

/// The property list of an empty dictionary, as new files hold it.
QByteArray emptyText();

} // namespace quillon::property_list
