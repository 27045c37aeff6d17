#include "store/storage_status.h"

#include "platform/atomic_file.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "platform/settings.h"
#include "store/process_state.h"

#include <QCoreApplication>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class StorageStatusText
{
    Q_DECLARE_TR_FUNCTIONS(StorageStatus)
};

Q_LOGGING_CATEGORY(statusLog, "quillon.store")

void announce()
{
    NotificationCenter::defaultCenter().post(notification::failedWritesChanged);
}

/// The first of @p failures, and how many others there are; empty for none.
QString lineOf(const QMap<QString, Error> &failures)
{
    if (failures.isEmpty())
        return {};
    const QString line = failureLine(failures.first());
    const qsizetype others = failures.size() - 1;
    return others == 0 ? line : StorageStatusText::tr("%1, and %n more", nullptr, int(others)).arg(line);
}

} // namespace

Result<> storeFile(const QString &path, const QByteArray &bytes)
{
    return storeFile(path, bytes, atomic_file::read(path));
}

Result<> storeFile(const QString &path, const QByteArray &bytes, const Result<QByteArray> &old)
{
    const bool hasFailed = mwqnFailedWrites.contains(path);
    Result<> stored = atomic_file::replace(path, bytes, old);
    // The bytes may be there since a write that could not be synced.
    if (stored && hasFailed)
        stored = atomic_file::syncEntry(path);
    return reported(path, std::move(stored));
}

Result<> keepUnreadable(const QString &path, const QByteArray &bytes)
{
    const QString kept = path + u".unreadable"_s;
    QString name = kept;
    Result<QByteArray> there = atomic_file::read(name);
    static constexpr int mostCopies = 1000;
    for (int number = 2; number < mostCopies && there != bytes && !there.isError(Error::Kind::Missing);
         ++number) {
        name = kept + u'-' + QString::number(number);
        there = atomic_file::read(name);
    }
    return storeFile(name, bytes, there);
}

Result<> reported(const QString &path, Result<> result)
{
    if (result)
        forgetFailure(path);
    else
        reportFailure(result.error());
    return result;
}

void reportFailure(const Error &error)
{
    qCWarning(statusLog).noquote() << failureLine(error);
    mwqnFailedWrites[error.path] = error;
    announce();
}

void forgetFailure(const QString &path)
{
    if (mwqnFailedWrites.remove(path) > 0)
        announce();
}

void forgetFailures(const QString &path)
{
    const auto concerned = [&path](const QMap<QString, Error>::iterator each) {
        return each.key() == path || each.key().startsWith(path + u'/');
    };
    if (mwqnFailedWrites.removeIf(concerned) > 0)
        announce();
}

QString failureLine(const Error &error)
{
    const auto line = [&error](const QString &what) {
        return u"%1: %2 (%3)"_s.arg(what, error.path, error.reason);
    };
    switch (error.kind) {
    case Error::Kind::NotYetSafe:
        return line(StorageStatusText::tr("Done, but not yet safe on the disk"));
    case Error::Kind::Missing:
    case Error::Kind::Unreadable:
    case Error::Kind::Unintelligible:
        return line(StorageStatusText::tr("Not read"));
    case Error::Kind::Refused:
    case Error::Kind::NotDone:
        break;
    }
    return line(StorageStatusText::tr("Not stored"));
}

QString failureSentence(const Error &error)
{
    return error.kind == Error::Kind::Refused ? error.reason : failureLine(error);
}

QString failedWritesLine()
{
    return lineOf(mwqnFailedWrites);
}

void reportExtrasFailure(const QString &path, const Error &error)
{
    const QString line = failureLine(error);
    if (const auto known = mwqnFailedExtras.constFind(path);
        known != mwqnFailedExtras.cend() && failureLine(*known) == line)
        return;
    qCWarning(statusLog).noquote() << line;
    mwqnFailedExtras[path] = error;
    announce();
}

void forgetExtrasFailure(const QString &path)
{
    if (mwqnFailedExtras.remove(path) > 0)
        announce();
}

Result<> storeSetting(const QString &key, const QVariant &value)
{
    settings().setValue(key, value);
    settings().sync();
    const QString path = settings().fileName();
    // Settings that have failed once say so for ever; others on the same file say how it is now.
    if (QSettings(path, QSettings::IniFormat).status() != QSettings::AccessError) {
        forgetExtrasFailure(path);
        return {};
    }
    Error error{Error::Kind::NotDone, path, StorageStatusText::tr("it cannot be written")};
    reportExtrasFailure(path, error);
    return error;
}

QString failedExtrasLine()
{
    return lineOf(mwqnFailedExtras);
}

} // namespace quillon
