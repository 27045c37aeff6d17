#include "editor/pop_up_accessible.h"

#include <QAbstractItemView>

namespace quillon {

namespace {

QString &classOfPopUps()
{
    static QString name;
    return name;
}

QAccessibleInterface *newAccessible(const QString &className, QObject *object)
{
    auto *popUp = className == classOfPopUps() ? qobject_cast<QComboBox *>(object) : nullptr;
    return popUp ? new PopUpAccessible(popUp) : nullptr;
}

} // namespace

QString PopUpAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? popUp()->currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State PopUpAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = popUp()->view()->isVisible();
    state.editable = popUp()->isEditable();
    return state;
}

QStringList PopUpAccessible::actionNames() const
{
    return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
}

void PopUpAccessible::doAction(const QString &name)
{
    if (name == showMenuAction())
        popUp()->showPopup();
    else
        QAccessibleWidget::doAction(name);
}

void usePopUpAccessible(const char *className)
{
    classOfPopUps() = QString::fromLatin1(className);
    QAccessible::installFactory(newAccessible);
}

} // namespace quillon
