#pragma once

#include "platform/descriptor.h"

#include <chrono>

namespace quillon {

/**
 * Keeps two programs from writing to the data folder at once.
 *
 * Held for as long as the object lives. A lock whose owner has died is free: it is the system's own lock on a
 * file that is made once and never removed, whatever the file holds.
 */
class DataFolderLock
{
public:
    enum class State
    {
        Held,
        HeldByAnother,
        Unavailable, ///< The folder takes no lock file; then it takes no other writes either.
        Obstructed,  ///< What has the lock file's name cannot be locked, so that nobody knows who writes.
    };

    /// Tries to take the lock for at most @p patience.
    explicit DataFolderLock(std::chrono::milliseconds patience = std::chrono::seconds(2));

    [[nodiscard]] State state() const { return m_state; }
    /// Why the lock is obstructed or unavailable.
    [[nodiscard]] const Error &obstruction() const { return m_obstruction; }

private:
    State tryOnce();
    State obstructed(QStringView step);

    Descriptor m_file;
    State m_state = State::Unavailable;
    Error m_obstruction;
};

} // namespace quillon
