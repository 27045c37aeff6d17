#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QByteArray>
#include <QString>

namespace quillon {

class PadDocument;

/**
 * Creates, imports, renames and deletes title folders, and reads and writes the files of the selected title.
 *
 * All operations work on the data folder; none keeps anything between calls. A name that could lead out of
 * the data folder makes an operation fail with nothing touched. What fails is told by the result, and kept in
 * mwqnFailedWrites besides; where a title could not be made, as the data folder's. NotYetSafe means that it
 * is done: the list of titles is another one now.
 */
class AddDeleteImportEdit
{
public:
    AddDeleteImportEdit() = delete;

    /// Makes the data folder with its two empty site lists where it is missing; an existing one is left as it
    /// is.
    static Result<> checkAppSuppExists();

    /// Removes what crashes left half made, or half removed, in the data folder, in the titles and among the
    /// pictures of sites. Only for the one that holds the data folder's lock.
    static void removeUnfinished();

    /// Makes the folder and the first files of a new title. An existing title is left untouched, which is no
    /// error.
    static Result<> createNewListing(const QString &name);

    /// Makes a title of a PAD file, its text stored as UTF-8; existing files are overwritten.
    static Result<> importExistingFile(const QString &name, const PadDocument &content);

    /// Makes a title of a summary and a PAD file, with an empty error log. A new one comes into being whole
    /// or, even in a crash, not at all; files of an existing one are overwritten.
    static Result<> storeTitle(const QString &name, const QByteArray &summary, const QByteArray &pad);

    /// One file of the selected title: "general", "data", anything else the error log. Missing without a
    /// selected title.
    static Result<QByteArray> returnDataObjectFor(QStringView key);

    /// Replaces one file of the selected title: "data", "general" or "error", or the same with a capital. Any
    /// other key fails.
    static Result<> writeToFile(QStringView key, const QByteArray &data);

    /// The same in place of what returnDataObjectFor() gave as @p old, and of nothing else.
    static Result<> writeToFile(QStringView key, const QByteArray &data, const Result<QByteArray> &old);

    /// Replaces the selected title's error log.
    static Result<> writeErrors(const StringDictionary &errors);

    /// Gives the title another name, its folder with everything in it moved in one step. An error, and both
    /// as they were, when the old title is missing or something has the new name.
    static Result<> renameExistingQnDataFile(const QString &oldName, const QString &newName);

    /// Removes the title and everything in its folder; links inside are removed, never followed. After a
    /// crash it is there whole or not at all, and removeUnfinished() removes what is left.
    static Result<> deleteQnDataFile(const QString &name);

    /// Address by name of the sites that the author added. A missing file is made empty.
    static Result<StringDictionary> returnUserSitesDict();

    /// The same of the default sites that the author removed.
    static Result<StringDictionary> returnIgnoredSitesDict();
};

} // namespace quillon
