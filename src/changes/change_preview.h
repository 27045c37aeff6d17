#pragma once

#include "changes/change_plan.h"

#include <QAbstractTableModel>
#include <QSet>
#include <QTimer>

namespace quillon {

class EditHistory;

/**
 * A plan over titles before it is applied: which titles, what changes in each, what is ticked, and what came
 * of it. The rows of the table are titles.
 *
 * Planning goes on between events, some titles at a time, so that a window stays alive with thousands of
 * them; stop() ends it.
 */
class ChangePreview : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column
    {
        Title,
        Outcome,
        ColumnCount
    };

    /// Which titles are rows.
    enum class Rows
    {
        All,     ///< All, and only those that are ticked are planned.
        Changing ///< Those in which something changes, or of which something is to be told.
    };

    /// What is to become of titles; asked for a few of them at a time.
    using Planner = std::function<ChangePlan(const QStringList &titles)>;

    /// One title.
    struct Row
    {
        QString title;
        bool isPlanned = false;
        TitlePlan whole = {};  ///< With all changes.
        TitlePlan chosen = {}; ///< With those that are ticked.
        QString failure = {};  ///< Why it could not be planned.
    };

    /// Of @p titles those in @p ticked are ticked at first.
    ChangePreview(Rows rows, const QStringList &titles, const QSet<QString> &ticked,
                  QObject *parent = nullptr);

    /// Plans anew, by @p planner; titles stay ticked or not, and all changes are ticked. Without a planner
    /// nothing is planned.
    void plan(const Planner &planner);
    /// Ends planning; what is planned so far stays.
    void stop();
    [[nodiscard]] bool isPlanning() const { return !m_queue.isEmpty(); }

    [[nodiscard]] const Row &row(int row) const { return m_rows[row]; }
    [[nodiscard]] bool isTicked(int row) const { return !m_unticked.contains(m_rows[row].title); }
    void setTicked(int row, bool isTicked);
    [[nodiscard]] bool isChangeTicked(int row, FieldId field) const;
    void setChangeTicked(int row, FieldId field, bool isTicked);

    /// What is ticked and planned. It has no titles when there is nothing to apply.
    [[nodiscard]] ChangePlan ticked() const;
    [[nodiscard]] qsizetype tickedCount() const;

    /// Applies what is ticked, in the open title by @p open; a sentence that tells what came of it. Refused
    /// when nothing has been changed.
    Result<QString> apply(EditHistory *open);
    /// Takes back what apply() has done last, under the same rule.
    Result<QString> undo(EditHistory *open);
    /// Whether there is something to take back; then nothing is ticked or planned any more.
    [[nodiscard]] bool isApplied() const { return m_applied != 0; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

Q_SIGNALS:
    /// So many of so many titles are planned; the last time, all of them are, or planning was ended.
    void progressed(int done, int total);
    /// What is in @p row, or ticked there, is another.
    void rowChanged(int row);

private:
    void planSome();
    void planNext();
    void take(int title, const ChangePlan &plan);
    void tellRow(int row);

    const Rows m_shown;
    const QStringList m_titles;
    QSet<QString> m_unticked;
    QList<Row> m_rows;
    Planner m_planner;
    QList<int> m_queue; ///< Places of titles that are to be planned.
    int m_total = 0;    ///< How many they were.
    QString m_origin;
    QString m_label;
    QTimer m_turn;
    qint64 m_applied = 0; ///< The number of the set that was applied last.
};

/// What comes of @p plan besides the changes themselves, a line each: errors that go, errors that come, and
/// what is noted.
QStringList consequencesOf(const TitlePlan &plan);

} // namespace quillon
