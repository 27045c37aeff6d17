#include "platform/staged_folder.h"

#include "platform/atomic_file.h"
#include "platform/unfinished_name.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class StagedFolderText
{
    Q_DECLARE_TR_FUNCTIONS(StagedFolder)
};

} // namespace

Result<StagedFolder> StagedFolder::in(const QString &parent)
{
    auto handle = FolderHandle::open(parent);
    if (!handle)
        return handle.error();
    const QByteArray name = unfinished_name::make(unfinished_name::folder);
    auto folder = handle->makeFolder(name);
    if (!folder)
        return Error{.path = parent, .reason = folder.error().reason};
    return StagedFolder(name, *std::move(handle), *std::move(folder));
}

StagedFolder::~StagedFolder()
{
    if (!m_name.isEmpty())
        (void)atomic_file::removeAll(m_parent.path() + u'/' + QFile::decodeName(m_name));
}

Result<> StagedFolder::putInPlace(const QString &name, Content content, bool replace)
{
    const QByteArray place = QFile::encodeName(name);
    if (Result<> synced = syncContent(content); !synced)
        return synced;
    const bool replaces = replace && m_parent.exists(place);
    if (Result<> moved = replaces ? this->replace(place) : m_parent.move(m_name, m_parent, place); !moved)
        return moved;
    if (!replaces)
        m_name.clear();
    Result<> safe = m_parent.sync();
    if (safe || !replaces)
        return safe;
    // A crash might bring the old folder back, so it is not removed.
    const QString old = QFile::decodeName(std::exchange(m_name, {}));
    return Error{safe.error().kind, safe.error().path,
                 StagedFolderText::tr("%1; the old one is now called %2").arg(safe.error().reason, old)};
}

Result<> StagedFolder::syncContent(Content content) const
{
    Result<> synced = content == Content::Files ? m_folder.syncFiles() : m_folder.syncFileSystem();
    // What is not in its place yet is not done.
    return synced ? synced : Error{Error::Kind::NotDone, synced.error().path, synced.error().reason};
}

/// Leaves the old folder under the staged one's name, so that it goes with this object.
Result<> StagedFolder::replace(const QByteArray &name)
{
    if (m_parent.swap(m_name, name))
        return {};
    // Without a swap in one step the old folder steps aside first, and back again if the new one cannot come.
    const QByteArray aside = unfinished_name::make(unfinished_name::deleted);
    if (Result<> stepped = m_parent.move(name, m_parent, aside); !stepped)
        return stepped;
    Result<> moved = m_parent.move(m_name, m_parent, name);
    if (moved) {
        // One that is only to be removed has the name of what a kill leaves half done.
        if (!m_parent.move(aside, m_parent, m_name))
            m_name = aside;
        return moved;
    }
    if (m_parent.move(aside, m_parent, name))
        return moved;
    return Error{Error::Kind::NotDone, moved.error().path,
                 StagedFolderText::tr("%1; the old one is now called %2")
                     .arg(moved.error().reason, QFile::decodeName(aside))};
}

} // namespace quillon
