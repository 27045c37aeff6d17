#pragma once

#include <QString>

namespace quillon {

/// The page, as HTML, that takes the place of one that could not be loaded. @p description is shown as plain
/// text, whatever is in it.
QString loadErrorPage(const QString &description);

} // namespace quillon
