#pragma once

#include <QStringView>

#include <compare>

namespace quillon {

/// How people order versions: part by part, numbers by their value however long they are, so that 1.10
/// follows 1.9; letters by the alphabet, case aside. "1.0a" comes after "1.0", but "1.0 beta" and the like
/// before it. For showing and sorting only: whether a site has the title's version, equal texts say.
std::weak_ordering versionOrder(QStringView left, QStringView right);

} // namespace quillon
