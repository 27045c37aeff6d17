#pragma once

#include <QString>

#include <unistd.h>

namespace quillon {

/// Readies the environment for the web engine, before it starts: takes out what would open pages to other
/// programs or have another program run them, and for root the sandbox. Standard error says so, and also when
/// another has taken the sandbox out.
void prepareEngineEnvironment();

/// Whether a process of this user's can make the sandbox that the engine puts pages into; where it cannot,
/// and the sandbox is not switched off, the engine ends the whole program.
bool canMakeSandbox();

/// Why pages run without the engine's sandbox, in a sentence; empty when they run inside it. It does not work
/// for root, and an environment variable may have switched it off.
QString sandboxWarning(bool isRoot = geteuid() == 0);

} // namespace quillon
