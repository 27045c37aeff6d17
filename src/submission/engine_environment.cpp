#include "submission/engine_environment.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <span>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr const char *processVariable = "QTWEBENGINEPROCESS_PATH";
constexpr const char *debuggingVariable = "QTWEBENGINE_REMOTE_DEBUGGING";
constexpr const char *sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr const char *switchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

/// The engine's switches that open pages to other programs, or have another program run them.
constexpr std::array<QByteArrayView, 4> openingSwitches = {"remote-debugging", "cmd-prefix",
                                                           "browser-subprocess-path", "gpu-launcher"};

/// The engine's switches that take the sandbox, or a part of it, away.
constexpr std::array<QByteArrayView, 4> sandboxSwitches = {
    "no-sandbox", "single-process", "disable-seccomp-filter-sandbox", "disable-namespace-sandbox"};

/// The switches in the environment, without the quotation marks that may stand anywhere in them.
QByteArray environmentSwitches()
{
    return qgetenv(switchesVariable).replace('"', "");
}

bool hasAnyOf(std::span<const QByteArrayView> switches)
{
    const QByteArray given = environmentSwitches();
    return std::ranges::any_of(switches, [&given](QByteArrayView each) { return given.contains(each); });
}

void leaveOut(const char *variable)
{
    qunsetenv(variable);
    std::fprintf(stderr, "quillon: %s is ignored: it would open web pages to other programs.\n", variable);
}

/// Takes out of the environment what would open pages to other programs, or have another program run them.
void closeToOthers()
{
    for (const char *variable : {processVariable, debuggingVariable}) {
        if (qEnvironmentVariableIsSet(variable))
            leaveOut(variable);
    }
    if (hasAnyOf(openingSwitches))
        leaveOut(switchesVariable);
}

} // namespace

void prepareEngineEnvironment()
{
    closeToOthers();
    if (const QString warning = sandboxWarning(); !warning.isEmpty())
        std::fprintf(stderr, "quillon: %s\n", qPrintable(warning));
    if (geteuid() == 0)
        qputenv(sandboxVariable, "1");
}

bool canMakeSandbox()
{
    // The engine does the same in a process of its own, and does not survive the answer no.
    const QByteArray map = QByteArray::number(geteuid()) + ' ' + QByteArray::number(geteuid()) + " 1";
    const pid_t child = fork();
    if (child == 0) {
        const bool isAlone = unshare(CLONE_NEWUSER) == 0;
        const int file = isAlone ? open("/proc/self/uid_map", O_WRONLY) : -1;
        _exit(file >= 0 && write(file, map.constData(), size_t(map.size())) == map.size() ? 0 : 1);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

QString sandboxWarning(bool isRoot)
{
    if (isRoot)
        return u"running as root, so the sandbox of web pages is off."_s;
    const bool isSwitchedOff = qEnvironmentVariableIsSet(sandboxVariable) || hasAnyOf(sandboxSwitches);
    return isSwitchedOff ? u"an environment variable has switched the sandbox of web pages off."_s
                         : QString();
}

} // namespace quillon
