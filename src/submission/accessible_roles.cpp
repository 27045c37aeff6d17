#include "submission/accessible_roles.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

#include <algorithm>
#include <array>

namespace quillon {

namespace {

struct ClassRole
{
    QStringView className;
    QAccessible::Role role;
};

constexpr std::array<ClassRole, 2> roles = {{
    {u"quillon::ActivityIndicator", QAccessible::Animation},
    {u"quillon::PopUpWindow", QAccessible::Window},
}};

QAccessibleInterface *newInterface(const QString &className, QObject *object)
{
    const auto *const known = std::ranges::find(roles, className, &ClassRole::className);
    if (known == roles.end() || !object->isWidgetType())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), known->role);
}

} // namespace

void installAccessibleRoles()
{
    QAccessible::installFactory(newInterface);
}

} // namespace quillon
