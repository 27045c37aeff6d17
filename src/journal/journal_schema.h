#pragma once

#include "journal/database.h"

/// What the journal's database holds, and how an older one becomes the present one.
namespace quillon::journal_schema {

/// Tells our databases from those of other programs, in the file's header.
inline constexpr qint64 applicationId = 0x51756c6e; // "Quln"

/// The version that this program writes.
qint64 newestVersion();

/// Makes @p database, which may be empty, one of the newest version; all steps in one transaction.
Result<> migrate(Database &database);

/// Whether @p database, which is of @p version, has the tables of that version and nothing else: what else
/// there may be, such as a view in a table's place, decides what a query does.
Result<bool> isOurs(Database &database, qint64 version);

} // namespace quillon::journal_schema
