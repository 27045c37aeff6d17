#pragma once

#include <QItemSelectionModel>

#include <functional>

namespace quillon {

/// A selection that asks before it moves to another row, or to none; a refusal leaves all as it was.
class GuardedSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    /// Whether the row of the index, or with an invalid one no row, may be selected; a refusal is told to the
    /// user where that is asked for.
    enum class Telling
    {
        Silent,
        Aloud
    };
    using Guard = std::function<bool(const QModelIndex &, Telling)>;

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
