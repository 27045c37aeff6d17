#pragma once

#include "platform/string_dictionary.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quillon {

/**
 * Creates, imports, renames and deletes title folders, and reads and writes the files of the selected title.
 *
 * All operations work on the data folder; none keeps anything between calls. A name that could lead out of
 * the data folder makes an operation fail with nothing touched. Failures to write are kept in
 * mwqnFailedWrites; those of a title that could not be made as the data folder's.
 */
class AddDeleteImportEdit
{
public:
    AddDeleteImportEdit() = delete;

    /// Makes the data folder with its two empty site lists where it is missing; an existing one is left as it
    /// is.
    static void checkAppSuppExists();

    /// Removes what crashes left half made in the data folder and in the titles. Only for the one that holds
    /// the data folder's lock.
    static void removeUnfinished();

    /// Makes the folder and the first files of a new title. An existing title is left untouched. Whether
    /// something of that name exists now.
    static bool createNewListing(const QString &name);

    /// Makes a title of a PAD file's text as UTF-8; existing files are overwritten. True when all is stored
    /// (a disk that is full, or a name that cannot be a folder's, gives false).
    static bool importExistingFile(const QString &name, const QByteArray &content);

    /// Makes a title of a summary and a PAD file, with an empty error log. A new one comes into being whole
    /// or, even in a crash, not at all; files of an existing one are overwritten. True when all is stored.
    static bool storeTitle(const QString &name, const QByteArray &summary, const QByteArray &pad);

    /// One file of the selected title: "general", "data", anything else the error log. None when unreadable.
    static std::optional<QByteArray> returnDataObjectFor(QStringView key);

    /// Replaces one file of the selected title: "data", "general" or "error", or the same with a capital. Any
    /// other key fails.
    static bool writeToFile(QStringView key, const QByteArray &data);

    /// Replaces the selected title's error log.
    static bool writeErrors(const StringDictionary &errors);

    /// Gives the title another name, its folder with everything in it moved in one step. False, and both as
    /// they were, when the old title is missing or something has the new name.
    static bool renameExistingQnDataFile(const QString &oldName, const QString &newName);

    /// Removes the title and everything in its folder; links inside are removed, never followed.
    static bool deleteQnDataFile(const QString &name);

    /// Address by name of the sites that the author added. A missing file is made empty; none when it is
    /// there but no list of sites.
    static std::optional<StringDictionary> returnUserSitesDict();

    /// The same of the default sites that the author removed.
    static std::optional<StringDictionary> returnIgnoredSitesDict();
};

} // namespace quillon
