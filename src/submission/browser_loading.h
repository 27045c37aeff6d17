#pragma once

#include "platform/result.h"

namespace quillon {

class BrowserModule;

/// Where the module lies: at one place beside the program, in the build as well as where it is installed.
QString browserModulePath();

/// Whether all that the module at @p path needs lies where it usually does; a quick look, while loading it
/// takes as long as a window does.
bool isBrowserInPlace(const QString &path);

/// Loads the module at @p path, which then stays until the process ends; again, gives the same one. An
/// application object for windows is there. An error's reason says in a sentence why no page can be shown,
/// and what to do; a later attempt may succeed.
Result<BrowserModule *> loadBrowserModule(const QString &path);

} // namespace quillon
