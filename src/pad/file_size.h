#pragma once

#include <QString>

namespace quillon {
class PadForm;
}

/// A program's size in bytes, shown in kilobytes and megabytes of 1024.
namespace quillon::file_size {

/// @p bytes as kilobytes, a whole number and " KB": 1500000 gives "1465 KB".
QString kilobytes(QStringView bytes);

/// @p bytes as megabytes with one decimal and " MB": 1500000 gives "1.4 MB".
///
/// Both take the decimal number at the start of the text, its sign and exponent included, calculate exactly
/// and round a half to the even neighbour. They take 0 where there is no number, and where its digits before
/// the point and its exponent, whatever its sign, are more than 100 together.
QString megabytes(QStringView bytes);

/// What the PAD file holds of such a label: every blank and the unit's letters removed.
QString withoutUnit(const QString &label);

/// Shows in @p form the sizes of the bytes that are typed there.
void show(PadForm &form);

/// Shows in @p form the sizes of a program without bytes: "0 KB" and "0.0 MB".
void showInitial(PadForm &form);

} // namespace quillon::file_size
