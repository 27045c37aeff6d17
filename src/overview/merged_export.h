#pragma once

#include "platform/result.h"

#include <QByteArray>

namespace quillon {

/// The PAD file @p original as it came, with the values of the title's PAD file @p stored laid over it where
/// the author changed them.
///
/// A value that the original would have after an import, now or at any later look at it, is none of the
/// author's: reading drops what lists do not know, checking takes blanks out of addresses, and what both made
/// of it stays in the original as it was. Unintelligible where mergedDocument() is.
Result<QByteArray> mergedExport(const QByteArray &original, const QByteArray &stored);

} // namespace quillon
