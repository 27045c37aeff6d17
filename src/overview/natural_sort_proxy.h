#pragma once

#include <QCollator>
#include <QHash>
#include <QSortFilterProxyModel>

namespace quillon {

/// Sorts as people read: by the language's own alphabet, case aside, and numbers by their value, so that
/// version 1.10 follows 1.9. Dates sort as dates.
class NaturalSortProxy : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit NaturalSortProxy(QObject *parent = nullptr);

protected:
    [[nodiscard]] bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    [[nodiscard]] QCollatorSortKey keyOf(const QString &text) const;

    QCollator m_collator;
    mutable QHash<QString, QCollatorSortKey> m_keys; ///< Sorting compares each text some twenty times.
};

} // namespace quillon
