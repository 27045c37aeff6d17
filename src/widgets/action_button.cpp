#include "widgets/action_button.h"

#include <QAction>
#include <QPushButton>

namespace quillon {

QPushButton *newActionButton(QAction &action, const QString &name, QWidget *parent)
{
    auto *button = new QPushButton(parent);
    button->setObjectName(name);
    const auto follow = [button, &action] {
        button->setIcon(action.icon());
        button->setText(action.text());
        // An action without a tip of its own repeats its text.
        button->setToolTip(action.toolTip() == action.iconText() ? QString() : action.toolTip());
        button->setEnabled(action.isEnabled());
    };
    QObject::connect(&action, &QAction::changed, button, follow);
    QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    follow();
    return button;
}

} // namespace quillon
