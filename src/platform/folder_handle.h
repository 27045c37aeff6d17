#pragma once

#include "platform/descriptor.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <dirent.h>
#include <optional>

namespace quillon {

/**
 * An open folder, through which what lies in it is reached by single names.
 *
 * Names are those of the file system, in its own bytes. No operation follows a symbolic link or leads out of
 * the folder, whatever somebody else does to the tree meanwhile. Failures are told as a readable reason; none
 * means that all is well.
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
    using Failure = std::optional<QString>;

    /// Files larger than this (bytes) are not read; the files of a title have some 10 to 100 kB.
    static constexpr qint64 maxFileSize = 64LL * 1024 * 1024;

    /// The folder at @p path, which may lead there over links; none when it cannot be opened.
    static std::optional<FolderHandle> open(const QString &path);

    /// What lies in the folder, by name, without "." and "..". Not from two threads at a time.
    [[nodiscard]] QList<Entry> entries() const;
    /// Whether anything, a broken link as well, has the name.
    [[nodiscard]] bool exists(const QByteArray &name) const;

    [[nodiscard]] std::optional<FolderHandle> openFolder(const QByteArray &name) const;
    /// Makes a folder; none when that fails or the name is taken.
    [[nodiscard]] std::optional<FolderHandle> makeFolder(const QByteArray &name) const;

    /// The whole of a regular file; none when it is anything else or cannot be read.
    [[nodiscard]] std::optional<QByteArray> read(const QByteArray &name) const;
    /// Makes a file of @p bytes and compares what then stands there. A taken name is a failure. Nothing is
    /// synced.
    [[nodiscard]] Failure write(const QByteArray &name, const QByteArray &bytes) const;

    /// Moves an entry to @p to, never over another one.
    [[nodiscard]] Failure move(const QByteArray &name, const FolderHandle &to,
                               const QByteArray &newName) const;
    /// Swaps two entries in one step, where the file system can do that; else fails.
    [[nodiscard]] Failure swap(const QByteArray &name, const QByteArray &other) const;

    /// Syncs the folder's list of names.
    [[nodiscard]] Failure sync() const;
    /// Syncs the files in the folder, and the list of their names.
    [[nodiscard]] Failure syncFiles() const;
    /// Syncs everything on the folder's file system: one step for any number of files.
    [[nodiscard]] Failure syncFileSystem() const;

private:
    explicit FolderHandle(Descriptor descriptor) : m_descriptor(std::move(descriptor)) {}
    static std::optional<FolderHandle> adopted(int descriptor);
    [[nodiscard]] Kind kindOf(const dirent64 &record) const;

    Descriptor m_descriptor;
};

} // namespace quillon
