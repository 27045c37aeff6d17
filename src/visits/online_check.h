#pragma once

#include "submission/visitor.h"

#include <QAbstractTableModel>

#include <chrono>
#include <memory>

namespace quillon {

class DelayedCalls;

/// Addresses that are visited one after the other, at a polite pace, and what is found there; shown as a
/// table while it goes on.
class OnlineCheck : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// How long it waits between two visits.
    static constexpr std::chrono::milliseconds pace{2000};

    enum Column
    {
        What,
        Found,
        Detail,
        Time,
        ColumnCount
    };

    /// One address, and what is found there.
    struct Row
    {
        QString what; ///< What it is the address of.
        VisitRequest request = {};
        QString result = {}; ///< In a word or two; empty before the visit.
        QString detail = {}; ///< In a sentence.
        qint64 time = 0;     ///< Of the visit, milliseconds since 1970 (UTC).
        [[nodiscard]] bool isDone() const { return !result.isEmpty(); }
    };

    /// @p rows that have a result already are not visited. @p delayedCalls must outlive the check.
    OnlineCheck(QList<Row> rows, std::unique_ptr<Visitor> visitor, DelayedCalls &delayedCalls,
                QObject *parent = nullptr);

    /// Visits what has not been visited yet.
    void start();
    /// Gives up; what has been found stays.
    void cancel();
    [[nodiscard]] bool isRunning() const { return m_current >= 0; }
    /// "3 of 11 visited", and while it goes on, what is visited now.
    [[nodiscard]] QString progress() const;

    /// Whether every address has been visited.
    [[nodiscard]] bool isDone() const;

    [[nodiscard]] const QList<Row> &table() const { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// isRunning() or progress() is another one.
    void progressChanged();

protected:
    /// Shows what @p visit says of the address of @p row; again when more is known of it.
    virtual void take(int row, const Visit &visit) = 0;
    /// Before anything is shown or visited.
    void setRows(QList<Row> rows) { m_rows = std::move(rows); }
    /// Shows what was found at the address of @p row, with the time of now.
    void show(int row, const QString &result, const QString &detail);

private:
    void visitNext();
    void visited(const Visit &visit);

    QList<Row> m_rows;
    std::unique_ptr<Visitor> m_visitor;
    DelayedCalls &m_delayedCalls;
    bool m_hasNetwork = false;             ///< Something on the Internet has answered.
    QList<std::pair<int, Visit>> m_unsure; ///< Rows whose server was not found before that.
    int m_current = -1; ///< The row that is being visited, or is next; none when nothing goes on.
    int m_run = 0;      ///< Number of the run; what was meant for another one comes to nothing.
};

} // namespace quillon
