#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QString>

/// Files that are read whole and replaced whole.
namespace quillon::atomic_file {

/// The whole of a regular file of at most @p maxSize bytes, which may be reached over links. Anything else
/// that has the name is unreadable.
Result<QByteArray> read(const QString &path, qint64 maxSize = qint64{64} * 1024 * 1024);

/// Replaces the file at @p path, which read() gave as @p old, by @p bytes: a temporary file in the same
/// folder is written, flushed and synced, renamed over the old one, and the folder synced. Each step's result
/// is looked at; on a failure before the renaming the old file stays as it was and the temporary file is
/// removed. True means that the bytes are on the disk.
///
/// A file whose bytes are those already is left alone. What is there and could not be read is an error, also
/// if it could be by now: nobody knows what would be lost. The mode of a replaced file is kept.
Result<> replace(const QString &path, const QByteArray &bytes, const Result<QByteArray> &old);

/// The same, with what is there now.
Result<> write(const QString &path, const QByteArray &bytes);

/// Syncs the folder that @p path lies in, so that its entry there outlives a crash.
Result<> syncEntry(const QString &path);

/// Removes what is at @p path, a folder with everything in it. Links are removed, never followed.
Result<> removeAll(const QString &path);

} // namespace quillon::atomic_file
