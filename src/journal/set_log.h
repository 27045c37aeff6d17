#pragma once

#include "journal/history.h"

/// Sets of changes as the journal knows them: what was changed in one go, in one title or in many. To be
/// called inside of Journal::change() or read().
///
/// A set over many titles is written down with all its rows before the first title is changed, and finished
/// when the last one is. So a crash in between leaves none whose rows would be missing, and the next start
/// finds the set and looks how far it came.
namespace quillon::set_log {

/// A set without its texts.
struct SetHead
{
    qint64 id = 0;
    qint64 time = 0; ///< Milliseconds since 1970 (UTC).
    QString label = {};
    QString origin = {};
    std::optional<qint64> of = {}; ///< The set that it takes back, or does again.
    bool isUnfinished = false;
    qint64 titles = 0;
    qint64 rows = 0;
    qint64 takenBack = 0; ///< In so many of the titles it is taken back.
};

/// The rows of a set in one title.
struct TitleRows
{
    QString title; ///< Null for a deleted one.
    QList<history::Row> rows;
};

/// Writes down that @p rows are going to be made; the number of the set. Of @p head the time, label, origin
/// and what it is of are taken.
Result<qint64> begin(Database &database, const SetHead &head, const QList<TitleRows> &rows);

/// Forgets the rows of the set @p id in the titles @p unchanged, where it was not made. A set without any
/// rows goes as well.
Result<> forget(Database &database, qint64 id, const QStringList &unchanged);

/// Notes that the set @p id is made wherever it has rows.
Result<> finish(Database &database, qint64 id);

/// All sets but those of typing, the newest first.
Result<QList<SetHead>> all(Database &database);

/// The rows of the set @p id, title by title in the order in which they came in.
Result<QList<TitleRows>> rowsOf(Database &database, qint64 id);

/// What the set @p id is called.
Result<QString> labelOf(Database &database, qint64 id);

/// What the field of @p row of @p title held until it was next changed; none when it was not.
Result<std::optional<QString>> heldUntilNext(Database &database, const QString &title,
                                             const history::Row &row);

/// The numbers of the sets that were begun and not finished, oldest first.
Result<QList<qint64>> unfinished(Database &database);

} // namespace quillon::set_log
