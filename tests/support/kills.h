#pragma once

#include "support/faults.h"
#include "support/testing.h"

#include <sys/wait.h>
#include <unistd.h>

namespace quillon {

/// Lets @p change run in a process that is killed at its first writing call below @p folder, then in one that
/// is killed at its second, and so on until it comes through; before each, @p prepare runs, after each, @p
/// look. The rules @p others, each with a blank behind it, hold as well.
template<typename Prepare, typename Change, typename Look>
void killedAtEachCall(const QString &folder, const Prepare &prepare, const Change &change, const Look &look,
                      const QByteArray &others = {})
{
    bool isDone = false;
    for (int call = 1; !isDone; ++call) {
        SCOPED_TRACE(call);
        prepare();
        const pid_t child = ::fork();
        if (child == 0) {
            const FaultPlan plan(folder, others + failing("writing", call, "kill"));
            change();
            ::_exit(0);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        isDone = WIFEXITED(status);
        EXPECT_TRUE(call > 1 || !isDone) << "nothing is written";
        look();
    }
}

} // namespace quillon
