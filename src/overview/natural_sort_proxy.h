#pragma once

#include <QCollator>
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
    QCollator m_collator;
};

} // namespace quillon
