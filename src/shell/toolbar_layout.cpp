#include "shell/toolbar_layout.h"

#include "platform/settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::toolbar_layout {

namespace {

const QString orderKey = u"quillonToolbar/items"_s;

bool isAllowed(const QString &identifier)
{
    const QList<ToolbarItem> &items = allowedItems();
    return std::any_of(items.begin(), items.end(),
                       [&](const ToolbarItem &item) { return item.identifier == identifier; });
}

} // namespace

const QList<ToolbarItem> &allowedItems()
{
    static const QList<ToolbarItem> items = {
        {u"Overview"_s, u":/icons/OverviewTBI.svg"_s},
        {u"Edit"_s, u":/icons/EditTBI.svg"_s},
        {u"Submit"_s, u":/icons/Submit.svg"_s},
        {space, {}},
        {flexibleSpace, {}},
        {separator, {}},
    };
    return items;
}

bool mayRepeat(const QString &identifier)
{
    return identifier == space || identifier == flexibleSpace || identifier == separator;
}

QStringList defaultOrder()
{
    return {space, u"Overview"_s, space, u"Edit"_s, flexibleSpace, u"Submit"_s, flexibleSpace};
}

QStringList storedOrder()
{
    if (!settings().contains(orderKey))
        return defaultOrder();
    QStringList order = settings().value(orderKey).toStringList();
    order.removeIf([](const QString &identifier) { return !isAllowed(identifier); });
    return order;
}

void storeOrder(const QStringList &identifiers)
{
    settings().setValue(orderKey, identifiers);
}

} // namespace quillon::toolbar_layout
