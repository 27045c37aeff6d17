#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace quillon {

/// How long a result waits, so that the sheet before it has closed.
inline constexpr std::chrono::milliseconds resultDelay{500};

/// Calls something a little later on the main thread; a test brings its own and moves the time itself.
class DelayedCalls
{
public:
    virtual ~DelayedCalls() = default;

    /// Runs @p call after @p delay, unless @p context is destroyed before.
    virtual void after(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) = 0;
};

/// By the event loop's timers.
class TimedCalls final : public DelayedCalls
{
public:
    void after(std::chrono::milliseconds delay, QObject *context, std::function<void()> call) override;
};

} // namespace quillon
