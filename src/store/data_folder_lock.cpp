#include "store/data_folder_lock.h"

#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether nobody lives who holds @p file; if so it is gone now. What the file says of its owner is not
/// asked: the number may be another process's by now, or from another machine or container. A living owner is
/// known by the system's own lock on the file.
bool isOrphaned(QLockFile &file)
{
    return file.error() == QLockFile::LockFailedError && file.removeStaleLockFile();
}

} // namespace

DataFolderLock::DataFolderLock(std::chrono::milliseconds patience)
    : m_file(std::make_unique<QLockFile>(mwqnAppSuppLoc + u"quillon.lock"_s))
{
    // However long the window stays open, its lock does not go stale; only a dead owner's does.
    m_file->setStaleLockTime(0);
    if (m_file->tryLock(int(patience.count())) || (isOrphaned(*m_file) && m_file->tryLock(0)))
        m_state = State::Held;
    else if (m_file->error() == QLockFile::LockFailedError)
        m_state = State::HeldByAnother;
}

} // namespace quillon
