#pragma once

#include <QItemSelectionModel>

#include <functional>

namespace quillon {

/// A selection that asks before it moves to another row; a refusal leaves all as it was.
class GuardedSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    /// Tells whether the row of the index may be selected, and tells the user when it may not.
    using Guard = std::function<bool(const QModelIndex &)>;

    GuardedSelectionModel(QAbstractItemModel *model, Guard guard, QObject *parent)
        : QItemSelectionModel(model, parent), m_guard(std::move(guard))
    {
    }

    void select(const QItemSelection &selection, SelectionFlags command) override;
    void setCurrentIndex(const QModelIndex &index, SelectionFlags command) override;
    using QItemSelectionModel::select;

private:
    Guard m_guard;
};

} // namespace quillon
