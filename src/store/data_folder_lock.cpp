#include "store/data_folder_lock.h"

#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether @p file names no owner, as a crash leaves a lock that was just being made; if so it is gone now.
bool isOrphaned(QLockFile &file)
{
    qint64 process = 0;
    QString host;
    QString application;
    return file.error() == QLockFile::LockFailedError && !file.getLockInfo(&process, &host, &application) &&
           file.removeStaleLockFile();
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
