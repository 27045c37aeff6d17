#pragma once

#include "journal/database.h"

#include <QList>

#include <limits>

/// Earlier texts of the titles' fields: one row for each field and each stretch of editing.
namespace quillon::history {

/// Where a change comes from. Fixes have others, which begin with "fix:".
namespace origin {
inline const QString typed = QStringLiteral("typed");
inline const QString import = QStringLiteral("import");
inline const QString restore = QStringLiteral("restore");
inline const QString bulk = QStringLiteral("bulk");
inline const QString release = QStringLiteral("release");
inline const QString undo = QStringLiteral("undo");
inline const QString redo = QStringLiteral("redo");
} // namespace origin

/// One field's text before and after a change.
struct Row
{
    qint64 number = 0; ///< Counts the rows of a title; given by append(). 0 is the file of an imported title.
    qint64 time = 0;   ///< Milliseconds since 1970 (UTC).
    QString field = {}; ///< The name of its control; empty for a whole file.
    QString before = {};
    QString after = {};
    QString origin = {};
    std::optional<qint64> set = {}; ///< What was changed in one go has the same number.
    QString label = {};             ///< What the set was called.
};

/// What was changed in one go, in one title.
struct Step
{
    QString origin;
    QString label; ///< What the author is told of it; empty for typing.
    qint64 time = 0;
    QList<Row> rows;               ///< Field, before and after of each; its origin where that is another one.
    std::optional<qint64> of = {}; ///< The set that this one takes back, or does again.
    std::optional<qint64> set = {}; ///< Its number where the set is there; else it gets one.
};

/// Adds @p steps to what is known of @p title, in their order, and thins out what is older than a year or
/// than its newest 10,000 rows; row 0 and releases stay.
Result<> append(Database &database, const QString &title, const QList<Step> &steps);

/// Notes that @p title was made of a file: row 0 of a title without a past.
Result<> appendImport(Database &database, const QString &title);

/// The newest @p most rows of @p title that are older than row @p before, newest first; only those of @p
/// field where it is not empty. None for a title without a past.
Result<QList<Row>> rows(Database &database, const QString &title, const QString &field = {},
                        qint64 most = std::numeric_limits<qint64>::max(),
                        qint64 before = std::numeric_limits<qint64>::max());

/// A step of a title's history without its texts.
struct StepHead
{
    qint64 first = 0; ///< Its rows.
    qint64 last = 0;
    QString origin;
    std::optional<qint64> set = {};
    std::optional<qint64> of = {}; ///< As that of Step.
};

/// The steps of @p title, oldest first.
Result<QList<StepHead>> steps(Database &database, const QString &title);

} // namespace quillon::history
