#pragma once

#include "platform/descriptor.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <dirent.h>

namespace quillon {

/// Whether @p name can be that of an entry in a folder: not empty, no "/" and no NUL in it, and no longer in
/// UTF-8 than the system takes, 255 bytes. Blanks are as good as letters.
bool isEntryName(QStringView name);

/**
 * An open folder, through which what lies in it is reached by single names.
 *
 * Names are those of the file system, in its own bytes. No operation follows a symbolic link or leads out of
 * the folder, whatever somebody else does to the tree meanwhile. Errors bear the path of what they are about.
 */
class FolderHandle
{
public:
    enum class Kind
    {
        Folder,
        File,
        Other ///< Links, pipes, devices.
    };
    struct Entry
    {
        QByteArray name;
        Kind kind;
    };

    /// Files larger than this (bytes) are not read; the files of a title have some 10 to 100 kB.
    static constexpr qint64 maxFileSize = 64LL * 1024 * 1024;

    /// The folder at @p path, which may lead there over links.
    static Result<FolderHandle> open(const QString &path);

    /// As it was opened.
    [[nodiscard]] const QString &path() const { return m_path; }

    /// What lies in the folder, by name, without "." and "..". All of it or an error. Not from two threads at
    /// a time.
    [[nodiscard]] Result<QList<Entry>> entries() const;
    /// Whether anything, a broken link as well, has the name.
    [[nodiscard]] Result<bool> isThere(const QByteArray &name) const;
    /// The same; also when that cannot be told.
    [[nodiscard]] bool exists(const QByteArray &name) const;

    [[nodiscard]] Result<FolderHandle> openFolder(const QByteArray &name) const;
    /// Makes a folder. A taken name is an error.
    [[nodiscard]] Result<FolderHandle> makeFolder(const QByteArray &name) const;

    /// The whole of a regular file; a link to one is unreadable.
    [[nodiscard]] Result<QByteArray> read(const QByteArray &name) const;
    /// Makes a file of @p bytes and compares what then stands there. A taken name is an error. Nothing is
    /// synced.
    [[nodiscard]] Result<> write(const QByteArray &name, const QByteArray &bytes) const;

    /// Moves an entry to @p to, never over another one, in one step that no crash can halve. Nothing is
    /// synced.
    [[nodiscard]] Result<> move(const QByteArray &name, const FolderHandle &to,
                                const QByteArray &newName) const;
    /// Swaps two entries in one step, where the file system can do that; else fails.
    [[nodiscard]] Result<> swap(const QByteArray &name, const QByteArray &other) const;

    /// Syncs the folder's list of names; the error is that what was done to it is not yet safe.
    [[nodiscard]] Result<> sync() const;
    /// Syncs the files in the folder, and the list of their names.
    [[nodiscard]] Result<> syncFiles() const;
    /// Syncs everything on the folder's file system: one step for any number of files.
    [[nodiscard]] Result<> syncFileSystem() const;

private:
    FolderHandle(Descriptor descriptor, const QString &path)
        : m_descriptor(std::move(descriptor)), m_path(path)
    {
    }
    static Result<FolderHandle> adopted(int descriptor, const QString &path);
    [[nodiscard]] QString pathOf(const QByteArray &name) const;
    [[nodiscard]] Kind kindOf(const dirent64 &record) const;

    Descriptor m_descriptor;
    QString m_path;
};

} // namespace quillon
