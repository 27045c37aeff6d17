#include "store/data_folder_lock.h"

#include "platform/translated_text.h"
#include "store/process_state.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

QString lockPath()
{
    return mwqnAppSuppLoc + u"quillon.lock"_s;
}

/// Whether the path still leads to the open @p file.
bool isInPlace(const Descriptor &file)
{
    struct stat open = {};
    struct stat there = {};
    return ::fstat(file.get(), &open) == 0 &&
           ::lstat(QFile::encodeName(lockPath()).constData(), &there) == 0 && open.st_dev == there.st_dev &&
           open.st_ino == there.st_ino;
}

} // namespace

DataFolderLock::DataFolderLock(std::chrono::milliseconds patience)
{
    static constexpr std::chrono::milliseconds pause(10);
    const auto end = std::chrono::steady_clock::now() + patience;
    m_state = tryOnce();
    while (m_state == State::HeldByAnother && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(pause);
        m_state = tryOnce();
    }
    if (m_state != State::Held)
        m_file.close();
}

DataFolderLock::State DataFolderLock::tryOnce()
{
    const QByteArray path = QFile::encodeName(lockPath());
    struct stat status = {};
    // Neither a pipe nor a link in its place; and none but the user may open it, for whoever can could lock
    // it.
    m_file =
        Descriptor(::open(path.constData(), O_RDWR | O_CREAT | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!m_file.isOpen()) {
        const bool isReadOnly = errno == EROFS;
        const State state = obstructed(QUILLON_TR_NOOP("Files", "it cannot be opened"));
        const bool isThere = ::lstat(path.constData(), &status) == 0;
        return isThere && !isReadOnly ? state : State::Unavailable;
    }
    if (::fstat(m_file.get(), &status) != 0)
        return obstructed(QUILLON_TR_NOOP("Files", "it cannot be looked at"));
    if (!S_ISREG(status.st_mode)) {
        m_obstruction = {Error::Kind::Unreadable, lockPath(),
                         QCoreApplication::translate("Files", "it is no regular file")};
        return State::Obstructed;
    }
    if ((status.st_mode & 077) != 0 && ::fchmod(m_file.get(), 0600) != 0)
        return obstructed(QUILLON_TR_NOOP("Files", "others may lock it"));
    if (::flock(m_file.get(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? State::HeldByAnother
                                    : obstructed(QUILLON_TR_NOOP("Files", "it cannot be locked"));
    // Somebody may have removed the file meanwhile; the next one would lock another.
    return isInPlace(m_file) ? State::Held : State::HeldByAnother;
}

DataFolderLock::State DataFolderLock::obstructed(QStringView step)
{
    m_obstruction = systemError(Error::Kind::NotDone, lockPath(), step);
    return State::Obstructed;
}

} // namespace quillon
