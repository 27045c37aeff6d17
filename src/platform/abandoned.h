#pragma once

#include <QString>

namespace quillon {

/// Removes from @p folder, which may be anybody's, what a Quillon that was killed left incomplete there:
/// files and folders under names of Quillon's own that nobody has touched for an hour. A younger one may
/// still be somebody's work; no lock could tell, since on a shared disk another machine may not see it.
void removeAbandoned(const QString &folder);

} // namespace quillon
