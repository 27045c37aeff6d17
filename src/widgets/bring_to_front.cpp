#include "widgets/bring_to_front.h"

#include <QWidget>

namespace quillon {

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace quillon
