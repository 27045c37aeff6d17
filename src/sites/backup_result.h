#pragma once

#include "platform/translated_text.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace quillon {

/// One thing in a backup.
struct BackupItem
{
    enum Kind : quint8
    {
        Title,
        Site,        ///< An own site, or a default one's own address.
        RemovedSite, ///< A default site that was removed.
        Extras       ///< The journal.
    };
    Kind kind;
    QString name;
    QString address = {};
    bool isKept = false; ///< It is here already and stays as it is; otherwise it is copied.
};

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
    QList<BackupItem> items = {}; ///< What was copied, or would be, and what stays as it is.
    QStringList details = {};     ///< One line for each thing that was passed over or failed.
    bool fileFailed = false;      ///< Something could not be read or written, or is not yet safe on the disk.
};

namespace backups {

enum class Mode
{
    Do,
    TryOut ///< Everything is read and judged, and nothing is written: the result tells what would come.
};

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
