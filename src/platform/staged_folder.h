#pragma once

#include "platform/folder_handle.h"

#include <QString>

namespace quillon {

/**
 * A folder that is filled under a name of no meaning and put into its place when it is complete.
 *
 * Until then nothing can be seen of it at the place, and whatever is there stays; one that is never put into
 * place is removed with everything in it.
 */
class StagedFolder
{
public:
    /// Makes a staged folder in the folder @p parent, which must exist.
    static Result<StagedFolder> in(const QString &parent);

    StagedFolder(StagedFolder &&) noexcept = default;
    StagedFolder &operator=(StagedFolder &&) = delete;
    ~StagedFolder();

    /// Where it is filled.
    [[nodiscard]] const FolderHandle &folder() const { return m_folder; }
    [[nodiscard]] const FolderHandle &parent() const { return m_parent; }

    /// What may be in it, and so how it is synced.
    enum class Content
    {
        Files,  ///< Some files and no folders; each is synced.
        Folders ///< Any number of both: everything on the file system is synced, in one step.
    };

    /// Syncs what is in it and gives it the name @p name in its parent. Something of that name is an error,
    /// unless @p replace says that it is to go; it goes only when the new folder stands there and that is
    /// safe. Until then it has a name of no meaning, which the error tells.
    Result<> putInPlace(const QString &name, Content content, bool replace = false);

private:
    StagedFolder(QByteArray name, FolderHandle parent, FolderHandle folder)
        : m_name(std::move(name)), m_parent(std::move(parent)), m_folder(std::move(folder))
    {
    }
    Result<> replace(const QByteArray &name);
    Result<> syncContent(Content content) const;

    QByteArray m_name; ///< In the parent; empty once there is nothing to remove.
    FolderHandle m_parent;
    FolderHandle m_folder;
};

} // namespace quillon
