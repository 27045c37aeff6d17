#pragma once

#include "platform/atomic_file.h"

namespace quillon {

/// Writes @p bytes to @p path (atomic_file::write) and keeps account of it: a failure is logged and stays in
/// mwqnFailedWrites until a later write of the same file succeeds. True when the bytes are stored.
bool storeFile(const QString &path, const QByteArray &bytes);

/// Stores @p bytes, which nobody could make sense of, beside the file at @p path that they came from, under
/// the first name with ".unreadable" that is free or holds them already. True when they are stored.
bool keepUnreadable(const QString &path, const QByteArray &bytes);

/// Records that something other than a file's content could not be stored (a folder not made, not moved).
void reportFailure(const QString &path, const QString &reason);

/// Forgets the failure of @p path itself, because it is mended.
void forgetFailure(const QString &path);

/// Forgets the failures of @p path and of all below it, because they are mended or their subject is gone.
void forgetFailures(const QString &path);

/// What the author should know of the failed write of @p path.
QString failedWriteLine(const QString &path);

/// What the author should know of failed writes, one line; empty when everything is stored.
QString failedWritesLine();

} // namespace quillon
