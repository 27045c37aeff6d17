#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>

/// XML property lists whose root is one dictionary of texts.
namespace quillon::property_list {

/// A property list is not read when it is larger (bytes) or holds more dictionaries and arrays than this;
/// ours hold one.
inline constexpr qsizetype maxSize = qsizetype{16} * 1024 * 1024;
inline constexpr qsizetype maxContainers = 1000;

/// The dictionary in @p bytes; unintelligible when they are malformed, too large, hold too many of those or
/// are no dictionary. Entries whose value is no text are left out.
Result<StringDictionary> read(const QByteArray &bytes);

/// The XML form of @p dictionary, entries in its order. No entries give emptyText().
QByteArray write(const StringDictionary &dictionary);

/// The property list of an empty dictionary, as new files hold it.
QByteArray emptyText();

} // namespace quillon::property_list
