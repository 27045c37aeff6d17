#include "submission/load_progress.h"

#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "store/process_state.h"

namespace quillon::load_progress {

namespace {

void show(int x, int y, int width, int height, bool isReset)
{
    progressBarState.x = float(x);
    progressBarState.y = float(y);
    progressBarState.width = float(width);
    progressBarState.height = float(height);
    progressBarState.isReset = isReset;
    NotificationCenter::defaultCenter().post(notification::mwqnPVdr);
}

} // namespace

void updateRectProgress(int x, int y, int width, int height)
{
    show(x, y, width, height, false);
}

void resetRectProgress(int x, int y, int width, int height)
{
    show(x, y, width, height, true);
    NotificationCenter::defaultCenter().post(notification::mwqnPVjhj342sa9);
}

void setViewWidth(double width)
{
    if (width >= 1)
        progressBarState.barWidth = int(width);
}

} // namespace quillon::load_progress
