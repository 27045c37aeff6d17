#pragma once

#include "pad/pad_document.h"
#include "platform/result.h"
#include "platform/translated_text.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// What can be done to titles, without a window: the title commands and the command line both call these.
namespace quillon::title_operations {

/// Whether a new title, or an old one renamed, may be called so.
enum class NameVerdict
{
    Free,
    Empty,
    Taken,
    Unusable
};

/// Names are compared exactly; blanks are kept.
NameVerdict judgeName(const QString &name);

/// What the author is told of a name that is not free; empty for a free one.
QString sentence(NameVerdict verdict);

/// Gives the title another name, which must be free. What the journal keeps of it follows.
Result<> renameTitle(const QString &oldName, const QString &newName);

/// What came of reading a PAD file in.
struct Import
{
    enum Outcome
    {
        Imported,
        NotPad,    ///< Too large, or without the PAD marker.
        NotRead,   ///< Missing or unreadable.
        NeedsName, ///< It has no name, or one that is taken or cannot be a folder's.
        NotStored, ///< The title could not be written; nothing of it was left behind.
    };
    Outcome outcome = NotPad;
    QString name;         ///< The title's name, or the one that could not be used.
    QString message;      ///< The sentence for the author.
    QStringList findings; ///< After an import: what Quillon will not keep, one sentence each.
    /// What came of reading the file and storing the title; after an import it may not yet be safe.
    Result<> stored = {};
    bool isKept = false; ///< The file itself is kept beside the title, byte for byte.
};

/// A PAD file from anywhere.
struct PadFile
{
    QByteArray bytes; ///< As they stand there.
    PadDocument document;
};

/// Files larger than this (bytes) are not taken for PAD files; real ones have 10 to 100 kB.
inline constexpr qint64 maxPadFileSize = 1024LL * 1024;

/// @p bytes as a PAD file; without the PAD marker, or too many, they are unintelligible. @p name is for the
/// error.
Result<PadFile> padFile(QByteArray bytes, const QString &name);

/// The same of the file at @p path.
Result<PadFile> readPadFile(const QString &path);

/// Makes a title of the PAD file at @p path, under the file's own program name or under @p name, and keeps
/// the file.
Import importPadFile(const QString &path, const std::optional<QString> &name = std::nullopt);

/// What is exported of a title.
enum class Export
{
    Stored,  ///< Its PAD file as Quillon writes it.
    Merged,  ///< The file that it came from, with what was changed since laid over it (mergedExport()).
    Original ///< The file that it came from, byte for byte.
};

/// Writes @p content of @p title to @p path, taken as it is. An existing file is replaced, where
/// @p path is a link the one that it points to; anything else that has the name stays. The error is for the
/// caller to tell; it is none of the stored files'.
Result<> exportPadFile(const QString &title, const QString &path, Export content = Export::Stored);

/// What is exported of @p title; Missing where it has no such file.
Result<QByteArray> exportedPad(const QString &title, Export content = Export::Stored);

/// Takes the selected title's marks of sites that are gone from the catalogue out of its summary file. True
/// when that changed the file. Before the catalogue has been built, or while the author's own sites cannot be
/// read, there is nothing to tell by, and nothing is done.
bool pruneMarks();

/// Prunes the selected title's marks and has it loaded and checked by @p check, which is told whether the
/// summary has changed; once more where that brings new marks to light.
void pruneAndCheck(const std::function<void(bool isPruned)> &check);

inline const QString importSucceeded =
    QStringLiteral(QUILLON_TR_NOOP("TitleOperations", "Import Successful"));
inline const QString exportSucceeded =
    QStringLiteral(QUILLON_TR_NOOP("TitleOperations", "PAD file export successful"));
inline const QString exportFailed =
    QStringLiteral(QUILLON_TR_NOOP("TitleOperations", "The PAD file export failed with an unknown error"));

} // namespace quillon::title_operations
