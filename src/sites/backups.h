#pragma once

#include "platform/result.h"
#include "sites/backup_result.h"

#include <functional>

/// Copies of all titles, or of the author's changes to the site list, in a folder of the author's choice, and
/// the way back.
///
/// Links are never followed, neither in the data folder nor in a backup; titles inside other folders are
/// passed over and named. So is what cannot be read: such a backup counts as failed, and what could be read
/// is put where nothing is, but never in place of an older backup. Nothing is written but in the data folder
/// or beside the chosen place.
namespace quillon::backups {

inline constexpr QStringView titlesExtension = u"swback";
inline constexpr QStringView sitesExtension = u"qnback";

/// Told after each title; false cancels.
using Progress = std::function<bool(int done, int total)>;

/// Makes the folder @p to of all titles: their three files byte for byte. The folder appears when it is
/// complete, read back, compared and synced. Its parent must exist and not lie in the data folder.
BackupResult backupTitles(const QString &to, Existing existing, const Progress &progress = {},
                          Mode mode = Mode::Do);

/// Adds the titles of the backup @p from to the data folder. One whose name is there already is left as it
/// is.
BackupResult restoreTitles(const QString &from, const Progress &progress = {}, Mode mode = Mode::Do);

/// Makes the folder @p to of the two site lists, byte for byte; also of one that is no list.
BackupResult backupSites(const QString &to, Existing existing, Mode mode = Mode::Do);

/// Adds the entries of the backup @p from to the two site lists; where both have a name, the present one
/// stays. The sentence is empty when all of it is done.
BackupResult restoreSites(const QString &from, Mode mode = Mode::Do);

/// Makes the folder @p to of everything, and brings back what is missing of it (whole_backup.h).
BackupResult backupAll(const QString &to, Existing existing, Mode mode = Mode::Do);
BackupResult restoreAll(const QString &from, Mode mode = Mode::Do);

/// Whether a backup may be made at @p to; else it is refused, with the reason.
Result<> mayBeMade(const QString &to, QStringView extension, Existing existing);

/// The path and the reason of @p error, or what is done and not yet safe, in one line.
QString detail(const Error &error);

} // namespace quillon::backups
