#pragma once

#include <QIcon>

class QWidget;

namespace quillon {

/// A red disc with the number of a page's errors, as large as the letters of @p widget.
QIcon errorBadge(int count, const QWidget &widget);

} // namespace quillon
