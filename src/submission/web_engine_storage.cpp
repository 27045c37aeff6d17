#include "submission/web_engine_storage.h"

#include "submission/web_engine_profile.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QStandardPaths>
#include <QWebEngineProfile>

#include <algorithm>
#include <csignal>
#include <fcntl.h>

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

/// Whether anybody else has the file at @p path open, or nobody knows.
bool isOpen(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    fcntl(file.handle(), F_SETSIG,
          SIGURG); // Who opens it meanwhile is told of by a signal; this one ends nothing.
    return fcntl(file.handle(), F_SETLEASE, F_WRLCK) != 0;
}

/// What is left of files that pages offered: the engine begins each under a name of its own in the folder of
/// all programs' data, before anybody is asked, and does not always remove it when the program ends. Other
/// programs have such an engine, too: only what has come since there is @p folder, and nobody works at.
QFileInfoList leftOfOfferedFiles(const QString &folder)
{
    const QDateTime first = QFileInfo(folder).birthTime();
    const QDateTime last = QDateTime::currentDateTime().addSecs(-60);
    QFileInfoList files = QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
                              .entryInfoList({u".org.chromium.Chromium.??????"_s},
                                             QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    files.removeIf([&](const QFileInfo &file) {
        const QDateTime born = file.birthTime();
        return !first.isValid() || !born.isValid() || born < first || file.lastModified() > last ||
               isOpen(file.filePath());
    });
    return files;
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
    for (const QFileInfo &entry : entries + leftOfOfferedFiles(m_folder)) {
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
