#include "platform/delayed_calls.h"

#include <QTimer>

namespace quillon {

void TimedCalls::after(std::chrono::milliseconds delay, QObject *context, std::function<void()> call)
{
    QTimer::singleShot(delay, context, std::move(call));
}

} // namespace quillon
