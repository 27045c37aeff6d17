#include "widgets/button_box.h"

#include <QDialogButtonBox>
#include <QLayout>

namespace quillon {

void orderForTab(QDialogButtonBox &box)
{
    box.setFocusProxy(nullptr);
    QWidget *before = &box;
    for (int at = 0; at < box.layout()->count(); ++at) {
        QWidget *button = box.layout()->itemAt(at)->widget();
        if (!button)
            continue;
        QWidget::setTabOrder(before, button);
        before = button;
    }
}

} // namespace quillon
