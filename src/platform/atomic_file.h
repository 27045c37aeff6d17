#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files that are read whole and replaced whole.
namespace quillon::atomic_file {

/// Begins the name of what is not complete yet; only a crash leaves such a thing behind.
inline constexpr QStringView unfinishedPrefix = u".quillon-";

/// Why a file could not be written: the step that failed and the system's reason, one readable sentence.
struct WriteError
{
    QString path;
    QString reason;
};

/// Replaces the file at @p path by @p bytes: a temporary file in the same folder is written, flushed and
/// synced, renamed over the old one, and the folder synced. Each step's result is looked at; on any failure
/// the old file stays as it was and the temporary file is removed. None means that the bytes are on the disk.
///
/// A file whose bytes are those already is left alone, and so is one that cannot be read: nobody knows what
/// would be lost. The mode of a replaced file is kept.
[[nodiscard]] std::optional<WriteError> write(const QString &path, const QByteArray &bytes);

/// The whole of a regular file of at most @p maxSize bytes; none when it is anything else or cannot be read.
std::optional<QByteArray> read(const QString &path, qint64 maxSize = qint64{64} * 1024 * 1024);

/// Removes what is at @p path, a folder with everything in it. Links are removed, never followed. False when
/// something of it stays.
bool removeAll(const QString &path);

/// Gives the folder @p from the path @p to, on the same file system, in one step that no crash can halve.
/// Fails when anything is at @p to.
[[nodiscard]] std::optional<WriteError> moveFolder(const QString &from, const QString &to);

} // namespace quillon::atomic_file
