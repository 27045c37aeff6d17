#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace quillon {

/// What came of a backup or a restore, ready to be told.
struct BackupResult
{
    enum Outcome
    {
        Done,
        Nothing,  ///< There was nothing to back up, and nothing was made.
        Refused,  ///< No backup may be made there; the details say why.
        Failed,   ///< The details say why.
        Cancelled ///< What was begun is removed.
    };
    Outcome outcome = Failed;
    int copied = 0;  ///< Titles, or of a site list entries, that now are where they were not before.
    int ignored = 0; ///< Titles that were left out because one of their name is there.
    QString sentence = {};
    QString informativeText = {};
    QStringList details = {}; ///< One line for each thing that was passed over or failed.
    bool fileFailed = false;  ///< Something was passed over since it could not be read or written.
};

/// Copies of all titles, or of the author's changes to the site list, in a folder of the author's choice, and
/// the way back.
///
/// Links are never followed, neither in the data folder nor in a backup; titles inside other folders, and
/// what cannot be read, are passed over and named. Nothing is written but in the data folder or beside the
/// chosen place.
namespace backups {

inline constexpr QStringView titlesExtension = u"swback";
inline constexpr QStringView sitesExtension = u"qnback";

inline const QString backupSucceeded = QStringLiteral("The backup was successful");
inline const QString backupFailed = QStringLiteral("The backup failed  with an unknown error");
inline const QString nothingToBackup = QStringLiteral("There is nothing to backup");

/// Whether what stands at a backup's place is to go; it goes only when the new backup is complete.
enum class Existing
{
    Refuse,
    Replace ///< Only something whose name has the backup's extension.
};

/// Told after each title; false cancels.
using Progress = std::function<bool(int done, int total)>;

/// Makes the folder @p to of all titles: their three files byte for byte. The folder appears when it is
/// complete, read back, compared and synced. Its parent must exist and not lie in the data folder.
BackupResult backupTitles(const QString &to, Existing existing, const Progress &progress = {});

/// Adds the titles of the backup @p from to the data folder. One whose name is there already is left as it
/// is.
BackupResult restoreTitles(const QString &from, const Progress &progress = {});

/// Makes the folder @p to of the two site lists, byte for byte; also of one that is no list.
BackupResult backupSites(const QString &to, Existing existing);

/// Adds the entries of the backup @p from to the two site lists; where both have a name, the present one
/// stays.
BackupResult restoreSites(const QString &from);

/// Why no backup may be made at @p to, one line; empty when it may.
QString refusal(const QString &to, QStringView extension, Existing existing);

} // namespace backups

/**
 * A backup or a restore of titles, one title at each step, so that a window stays alive meanwhile.
 *
 * Dropped before finish() it removes what it began.
 */
class TitleTransfer
{
public:
    static std::unique_ptr<TitleTransfer> backup(const QString &to, backups::Existing existing);
    static std::unique_ptr<TitleTransfer> restore(const QString &from);
    virtual ~TitleTransfer() = default;

    /// How many titles there are to copy, and how many have had their turn.
    [[nodiscard]] virtual int total() const = 0;
    [[nodiscard]] virtual int done() const = 0;

    /// Copies the next title; false when none is left, or when it makes no sense to go on.
    virtual bool step() = 0;

    /// Syncs what was copied and puts it into its place. Once.
    virtual BackupResult finish() = 0;
};

} // namespace quillon
