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
    QStringView name = {}; ///< Of those that cannot be given one where they are made.
};

constexpr std::array<ClassRole, 3> roles = {{
    {u"quillon::ActivityIndicator", QAccessible::Animation},
    {u"quillon::PopUpWindow", QAccessible::Window},
    {u"QQuickWidget", QAccessible::Document, u"Page"}, // The engine's, in which a page has the focus.
}};

QAccessibleInterface *newInterface(const QString &className, QObject *object)
{
    const auto *const known = std::ranges::find(roles, className, &ClassRole::className);
    if (known == roles.end() || !object->isWidgetType())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), known->role, known->name.toString());
}

} // namespace

void installAccessibleRoles()
{
    QAccessible::installFactory(newInterface);
}

} // namespace quillon
