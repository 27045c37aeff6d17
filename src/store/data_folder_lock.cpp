#include "store/data_folder_lock.h"

#include "store/process_state.h"

using namespace Qt::StringLiterals;

namespace quillon {

DataFolderLock::DataFolderLock(std::chrono::milliseconds patience)
    : m_file(std::make_unique<QLockFile>(mwqnAppSuppLoc + u"quillon.lock"_s))
{
    // However long the window stays open, its lock does not go stale; only a dead owner's does.
    m_file->setStaleLockTime(0);
    if (m_file->tryLock(int(patience.count())))
        m_state = State::Held;
    else if (m_file->error() == QLockFile::LockFailedError)
        m_state = State::HeldByAnother;
}

} // namespace quillon
