#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>

/// XML property lists whose root is one dictionary of texts.
namespace quillon::property_list {

/// What a property list may hold for it to be read, so that a stranger's takes no longer than a large one of
/// ours. A list of sites fifty times as long as the catalogue has 10,000 entries, of some 400 bytes each.
inline constexpr qsizetype maxEntries = 10'000;
inline constexpr qsizetype maxSize = qsizetype{4} * 1024 * 1024; ///< Bytes.
/// Dictionaries and arrays; ours hold one.
inline constexpr qsizetype maxContainers = 1000;
/// References such as "&amp;" each cost as many bytes as the text has that they stand in: 100 of them in an
/// address of 2,000 bytes cost 200,000. The largest list of such addresses costs a twentieth of this.
inline constexpr qsizetype maxMoves = 10'000'000'000;

/// The dictionary in @p bytes; unintelligible when they are malformed, no dictionary, hold a NUL or more than
/// may be. Entries whose value is no text are left out.
Result<StringDictionary> read(const QByteArray &bytes);

/// The XML form of @p dictionary, entries in its order. No entries give emptyText().
QByteArray write(const StringDictionary &dictionary);

/// The property list of an empty dictionary, as new files hold it.
QByteArray emptyText();

} // namespace quillon::property_list
