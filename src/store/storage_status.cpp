#include "store/storage_status.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"

#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Q_LOGGING_CATEGORY(log, "quillon.store")

void announce()
{
    NotificationCenter::defaultCenter().post(notification::failedWritesChanged);
}

} // namespace

bool storeFile(const QString &path, const QByteArray &bytes)
{
    if (const auto error = atomic_file::write(path, bytes)) {
        reportFailure(path, error->reason);
        return false;
    }
    forgetFailure(path);
    return true;
}

bool keepUnreadable(const QString &path, const QByteArray &bytes)
{
    const QString kept = path + u".unreadable"_s;
    QString name = kept;
    for (int number = 2; QFileInfo::exists(name) && atomic_file::read(name) != bytes; ++number)
        name = kept + u'-' + QString::number(number);
    return storeFile(name, bytes);
}

void reportFailure(const QString &path, const QString &reason)
{
    qCWarning(log).noquote() << "not stored:" << path << "-" << reason;
    mwqnFailedWrites[path] = reason;
    announce();
}

void forgetFailure(const QString &path)
{
    if (mwqnFailedWrites.remove(path) > 0)
        announce();
}

void forgetFailures(const QString &path)
{
    const auto concerned = [&path](const QMap<QString, QString>::iterator each) {
        return each.key() == path || each.key().startsWith(path + u'/');
    };
    if (mwqnFailedWrites.removeIf(concerned) > 0)
        announce();
}

QString failedWriteLine(const QString &path)
{
    return u"Not stored: %1 (%2)"_s.arg(path, mwqnFailedWrites.value(path));
}

QString failedWritesLine()
{
    if (mwqnFailedWrites.isEmpty())
        return {};
    const QString line = failedWriteLine(mwqnFailedWrites.firstKey());
    const qsizetype others = mwqnFailedWrites.size() - 1;
    return others == 0 ? line : u"%1, and %2 more"_s.arg(line, QString::number(others));
}

} // namespace quillon
