#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace quillon {

/// Starts @p command with its output thrown away; its process, or 0 when it cannot be started.
inline pid_t startProgram(std::vector<std::string> command)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string &word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
        process = 0;
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

/// Waits for the end of @p process; its exit status, -1 when it has none.
inline int exitStatus(pid_t process)
{
    int status = -1;
    if (process == 0 || waitpid(process, &status, 0) != process)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace quillon
