#include "submission/web_engine_storage.h"

#include "submission/web_engine_profile.h"

#include <QDir>
#include <QDirIterator>
#include <QWebEngineProfile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The highest number among the names of the folders in @p folder, and at least 1.
int highestNumber(const QString &folder)
{
    int highest = 1;
    const QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names)
        highest = std::max(highest, name.toInt());
    return highest;
}

/// In bytes, of all files below @p folder.
qint64 sizeOf(const QString &folder)
{
    qint64 size = 0;
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

} // namespace

WebEngineStorage::WebEngineStorage(QString folder)
    : m_folder(std::move(folder)), m_number(highestNumber(m_folder))
{
    (void)removeOthers(); // It is tried again with each start.
    makeProfile();
}

WebEngineStorage::~WebEngineStorage() = default;

void WebEngineStorage::makeProfile()
{
    m_profile = newWebEngineProfile(path());
}

QString WebEngineStorage::path() const
{
    return m_folder + u'/' + QString::number(m_number);
}

Result<> WebEngineStorage::removeOthers() const
{
    const QFileInfoList entries =
        QDir(m_folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    Result<> removed;
    for (const QFileInfo &entry : entries) {
        const QString name = entry.filePath();
        if (name == path())
            continue;
        const bool isFolder = entry.isDir() && !entry.isSymLink();
        if (!(isFolder ? QDir(name).removeRecursively() : QFile::remove(name)))
            removed = Error{.path = name, .reason = tr("Not all that pages have stored could be removed.")};
    }
    return removed;
}

Result<> WebEngineStorage::clear(const QString &reason)
{
    const auto old = std::exchange(m_profile, {});
    ++m_number;
    makeProfile();
    // Its threads may store something to the end.
    connect(old.get(), &QObject::destroyed, this, [this] { (void)removeOthers(); });
    Q_EMIT cleared(reason);
    return removeOthers();
}

void WebEngineStorage::look()
{
    if (sizeOf(path()) > limit)
        (void)clear(
            tr("Pages had stored more than %1 MB on this computer. All that they had stored was cleared, "
               "logins included.")
                .arg(limit / 1'000'000));
}

} // namespace quillon
