#pragma once

#include <QLockFile>

#include <memory>

namespace quillon {

/**
 * Keeps two programs from writing to the data folder at once.
 *
 * Held for as long as the object lives. A lock whose owner has died is taken over.
 */
class DataFolderLock
{
public:
    enum class State
    {
        Held,
        HeldByAnother,
        Unavailable, ///< The folder takes no lock file; then it takes no other writes either.
    };

    /// Tries to take the lock for at most @p patience.
    explicit DataFolderLock(std::chrono::milliseconds patience = std::chrono::seconds(2));

    [[nodiscard]] State state() const { return m_state; }

private:
    std::unique_ptr<QLockFile> m_file;
    State m_state = State::Unavailable;
};

} // namespace quillon
