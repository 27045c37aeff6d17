#include "store/data_folder_lock.h"

#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Takes over @p file if nobody lives who holds it. What the file says of its owner is not asked: the number
/// may be another process's by now, or from another machine or container. A living owner is known by the
/// system's own lock on the file.
bool takeOver(QLockFile &file)
{
    // One program at a time, or the second would remove what the first has just taken. QLockFile itself
    // removes stale files under a lock of this name.
    QLockFile removal(file.fileName() + u".rmlock"_s);
    static constexpr int patience = 1000; // Milliseconds.
    return file.error() == QLockFile::LockFailedError && removal.tryLock(patience) &&
           file.removeStaleLockFile() && file.tryLock(0);
}

} // namespace

DataFolderLock::DataFolderLock(std::chrono::milliseconds patience)
    : m_file(std::make_unique<QLockFile>(mwqnAppSuppLoc + u"quillon.lock"_s))
{
    // However long the window stays open, its lock does not go stale; only a dead owner's does.
    m_file->setStaleLockTime(0);
    if (m_file->tryLock(int(patience.count())) || takeOver(*m_file))
        m_state = State::Held;
    else if (m_file->error() == QLockFile::LockFailedError)
        m_state = State::HeldByAnother;
}

} // namespace quillon
