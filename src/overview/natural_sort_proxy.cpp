#include "overview/natural_sort_proxy.h"

#include "platform/natural_order.h"

namespace quillon {

NaturalSortProxy::NaturalSortProxy(QObject *parent)
    : QSortFilterProxyModel(parent), m_collator(naturalOrder())
{
}

bool NaturalSortProxy::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const QVariant first = left.data(sortRole());
    const QVariant second = right.data(sortRole());
    if (first.typeId() != QMetaType::QString)
        return QSortFilterProxyModel::lessThan(left, right);
    const int order = keyOf(first.toString()).compare(keyOf(second.toString()));
    if (order != 0 || left.column() == 0)
        return order < 0;
    const auto inFirstColumn = [this](const QModelIndex &index) {
        return index.siblingAtColumn(0).data(sortRole()).toString();
    };
    return keyOf(inFirstColumn(left)).compare(keyOf(inFirstColumn(right))) < 0;
}

QCollatorSortKey NaturalSortProxy::keyOf(const QString &text) const
{
    auto found = m_keys.constFind(text);
    if (found == m_keys.cend())
        found = m_keys.insert(text, m_collator.sortKey(text));
    return *found;
}

} // namespace quillon
