#pragma once

#include <QString>

namespace quillon {

/// What the engine's description of a failed load says to an author, the engine's own words behind it; these
/// alone when there are no better ones.
QString loadErrorDescription(const QString &engineDescription);

} // namespace quillon
