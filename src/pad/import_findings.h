#pragma once

#include <QStringList>

namespace quillon {

class PadDocument;

/// How many sentences are told of one file; one more says how many there would be.
inline constexpr qsizetype mostFindings = 100;

/// What an imported PAD file holds and Quillon does not keep, one sentence each: values that the fixed lists
/// do not know, what PAD 3.10 has no place for, elements that stand more than once, languages beside the one
/// that is kept.
///
/// All this is still in the title until its first full check rewrites the file, so the author is told before
/// the original is thrown away. Values are shortened to one line each.
QStringList importFindings(const PadDocument &document);

} // namespace quillon
