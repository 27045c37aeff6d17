#pragma once

#include "platform/result.h"

#include <QString>

/// A title to try Quillon with: complete and without errors, about a program that there is not.
namespace quillon::example_title {

/// Its name is what marks it as the example: one that is given another name is the author's own.
inline const QString name = QStringLiteral("Tide Table (Example)");

/// Makes the example, whole and as the full check leaves it, so that the list shows it as validated. Refused
/// where a title has its name.
Result<> make();

} // namespace quillon::example_title
