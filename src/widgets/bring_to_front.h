#pragma once

class QWidget;

namespace quillon {

/// Shows @p window before all others, also when it was minimised, and gives it the keyboard.
void bringToFront(QWidget &window);

} // namespace quillon
