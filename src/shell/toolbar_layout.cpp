#include "shell/toolbar_layout.h"

#include "platform/settings.h"
#include "store/storage_status.h"

using namespace Qt::StringLiterals;

namespace quillon::toolbar_layout {

namespace {

const QString orderKey = u"quillonToolbar/items"_s;

} // namespace

const QStringList &allowedItems()
{
    static const QStringList items = {u"Overview"_s, u"Edit"_s, u"Submit"_s, space, flexibleSpace, separator};
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
    order.removeIf([](const QString &identifier) { return !allowedItems().contains(identifier); });
    return order;
}

void storeOrder(const QStringList &identifiers)
{
    (void)storeSetting(orderKey, identifiers); // The status bar tells.
}

} // namespace quillon::toolbar_layout
