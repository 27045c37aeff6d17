#pragma once

#include "pad/field_catalogue.h"
#include "platform/result.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

namespace quillon {

/// Values by field, as PadForm::value() gives them.
using FieldValues = std::array<std::optional<QString>, fieldCount>;

/// The PAD file @p original, of any origin, with @p values laid over it; what they do not name stays byte for
/// byte, and with none of them the whole does.
///
/// A value takes the place of its element's content, escaped, in the original's encoding and with its line
/// ends; texts of several lines are taken as they were cut out, with their references and, where the original
/// has any there, their markup. An element that is missing is added where PAD has its place.
///
/// Unintelligible where that cannot be done: the result is read again, and each value in it must be the one
/// that was laid over it or the original's.
Result<QByteArray> mergedDocument(const QByteArray &original, const FieldValues &values);

} // namespace quillon
