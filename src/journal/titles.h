#pragma once

#include "journal/database.h"

/// The titles that the journal knows. Their rows belong to a number, which follows a title when it is renamed
/// or deleted. To be called inside of Journal::change() or read().
namespace quillon::journal_titles {

/// The number of the title @p name; Missing when the journal knows none of that name.
Result<qint64> idOf(Database &database, const QString &name);

/// The same, given to the title where it has none.
Result<qint64> idMadeFor(Database &database, const QString &name);

/// Gives the title another name, or with std::nullopt none, because it is deleted. What is left of another
/// title of the new name, whose folder is gone, goes. A title that the journal does not know needs nothing.
Result<> rename(Database &database, const QString &oldName, const std::optional<QString> &newName);

} // namespace quillon::journal_titles
