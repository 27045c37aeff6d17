#pragma once

#include "platform/result.h"

#include <QString>

#include <functional>

/// Copies of the journal's database, and the way back.
namespace quillon::journal_copies {

/// Copies the database to the new file @p path, by SQLite's own means. Missing where there is none.
Result<> copyTo(const QString &path);

/// Whether copyTo() has a database that can be read. Missing where there is none.
Result<> canBeCopied();

/// Adds from the copy @p path what the present database does not have: all that is known of titles that are
/// not known here and @p isWanted accepts, what was deleted, what was learned of sites, and what was
/// confirmed of their forms. Nothing that is here is changed. How many titles and deleted things came in.
///
/// @p path may be of an older version; it is not changed. Unintelligible when it is no such copy, or damaged.
Result<qint64> bringIn(const QString &path, const std::function<bool(const QString &title)> &isWanted);

/// Whether bringIn() could read all of the copy @p path; nothing is written.
Result<> canBeBroughtIn(const QString &path);

} // namespace quillon::journal_copies
