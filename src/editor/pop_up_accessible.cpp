#include "editor/pop_up_accessible.h"

#include <QAbstractItemView>

namespace quillon {

namespace {

QStringList &classesOfPopUps()
{
    static QStringList names;
    return names;
}

QAccessibleInterface *newAccessible(const QString &className, QObject *object)
{
    auto *popUp = classesOfPopUps().contains(className) ? qobject_cast<QComboBox *>(object) : nullptr;
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
    if (classesOfPopUps().isEmpty())
        QAccessible::installFactory(newAccessible);
    classesOfPopUps().append(QString::fromLatin1(className));
}

NamedPopUp::NamedPopUp(QWidget *parent) : QComboBox(parent)
{
    [[maybe_unused]] static const bool once = (usePopUpAccessible(staticMetaObject.className()), true);
}

} // namespace quillon
