#pragma once

#include <QByteArray>
#include <QStringList>

namespace quillon {

/// What an imported PAD file holds and Quillon does not keep, one sentence each: values that the fixed lists
/// do not know, sections that PAD 3.10 does not have, elements that stand more than once.
///
/// All this is still in the title until its first full check rewrites the file, so the author is told before
/// the original is thrown away. Values are shortened to one line each.
QStringList importFindings(const QByteArray &padFile);

} // namespace quillon
