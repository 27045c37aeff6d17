#pragma once

class QWidget;

namespace quillon {

/// Shows what the program is, and in which version, over @p parent.
void openAboutPanel(QWidget *parent);

} // namespace quillon
