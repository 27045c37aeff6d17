#pragma once

#include "platform/result.h"

#include <QString>

class QMenuBar;

/// The manual's chapters of commands, made of what the programs say of themselves.
namespace quillon::command_reference {

/// What @p program tells with --help, and each of its commands, and theirs; an error when it fails.
Result<QString> ofProgram(const QString &program);

/// The commands of a window by its menus, with their keys. The headings' ids begin with @p window.
QString ofMenus(const QString &window, const QMenuBar &bar);

} // namespace quillon::command_reference
