#pragma once

#include "platform/translated_text.h"

#include <QString>
#include <QStringList>

namespace quillon {

/// What came of a backup or a restore, ready to be told.
struct BackupResult
{
    enum Outcome
    {
        Done,
        Nothing,  ///< There was nothing to back up, and nothing was made.
        Refused,  ///< No backup may be made there; the details say why.
        Failed,   ///< Not all of it was done; the details say what was not, and why.
        Cancelled ///< What was begun is removed.
    };
    Outcome outcome = Failed;
    int copied = 0;  ///< Titles, or of a site list entries, that now are where they were not before.
    int ignored = 0; ///< Titles that were left out because one of their name is there.
    QString sentence = {};
    QString informativeText = {};
    QStringList details = {}; ///< One line for each thing that was passed over or failed.
    bool fileFailed = false;  ///< Something could not be read or written, or is not yet safe on the disk.
};

namespace backups {

/// Whether what stands at a backup's place is to go; it goes only when the new backup is whole.
enum class Existing
{
    Refuse,
    Replace ///< Only something whose name has the backup's extension.
};

inline const QString backupSucceeded =
    QStringLiteral(QUILLON_TR_NOOP("Backups", "The backup was successful"));
inline const QString backupFailed =
    QStringLiteral(QUILLON_TR_NOOP("Backups", "The backup failed  with an unknown error"));
inline const QString nothingToBackup =
    QStringLiteral(QUILLON_TR_NOOP("Backups", "There is nothing to backup"));

} // namespace backups

} // namespace quillon
