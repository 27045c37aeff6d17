#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QString>
#include <QStringList>

#include <sys/stat.h>

namespace quillon {

/// The file's bytes; a text that no file of ours holds when it cannot be read.
inline QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

/// Writes @p bytes to @p path, plainly.
inline bool put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The names in @p folder, hidden ones too, in order.
inline QStringList names(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

/// Everything below @p folder, hidden things too, by their paths from there: the bytes of files, "-" for
/// others. The database of extras is left out.
inline QMap<QString, QByteArray> tree(const QString &folder)
{
    QMap<QString, QByteArray> found;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        if (!walk.fileName().startsWith(QStringLiteral("quillon.sqlite")))
            found[QDir(folder).relativeFilePath(path)] = walk.fileInfo().isFile() ? contents(path) : "-";
    }
    return found;
}

/// A file that is written anew gets another number.
inline ino_t fileNumber(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
}

/// A file of tests/samples.
inline QByteArray sample(const QString &name)
{
    return contents(QStringLiteral(QUILLON_SAMPLES "/") + name);
}

} // namespace quillon
