#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QVariant>

namespace quillon {

/// Writes @p bytes to @p path (atomic_file::write) and keeps account of it: a failure is logged and stays in
/// mwqnFailedWrites until a later write of the same file succeeds and is safe. True when the bytes are on the
/// disk.
Result<> storeFile(const QString &path, const QByteArray &bytes);

/// The same in place of what the caller has read there, @p old, and of nothing else.
Result<> storeFile(const QString &path, const QByteArray &bytes, const Result<QByteArray> &old);

/// Stores @p bytes, which nobody could make sense of, beside the file at @p path that they came from, under
/// the first name with ".unreadable" that is free or holds them already.
Result<> keepUnreadable(const QString &path, const QByteArray &bytes);

/// Keeps account of what came of something other than a file's content: a failure as that of its path,
/// success as the end of failures of @p path. Gives @p result back.
Result<> reported(const QString &path, Result<> result);

/// Records @p error as its path's.
void reportFailure(const Error &error);

/// Forgets the failure of @p path itself, because it is mended.
void forgetFailure(const QString &path);

/// Forgets the failures of @p path and of all below it, because they are mended or their subject is gone.
void forgetFailures(const QString &path);

/// What the author should know of @p error, one line.
QString failureLine(const Error &error);

/// The same; of a refusal the reason alone, which is a sentence already.
QString failureSentence(const Error &error);

/// What the author should know of all that is not as it should be on the disk, one line; empty when
/// everything is stored.
QString failedWritesLine();

/// Records @p error as that of an extra, found under @p path: no field, mark or site is concerned. The same
/// one is told once.
void reportExtrasFailure(const QString &path, const Error &error);

/// Forgets the failure of an extra under @p path, because it is mended.
void forgetExtrasFailure(const QString &path);

/// Keeps @p value, which the author has chosen, in the settings under @p key, at once. A failure is told as
/// that of an extra until something can be kept there.
Result<> storeSetting(const QString &key, const QVariant &value);

/// What the author should know of extras that are not kept, one line; empty when all are.
QString failedExtrasLine();

} // namespace quillon
