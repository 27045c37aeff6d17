#pragma once

#include <QString>

namespace quillon {

/// The script of ours of that name, which is part of the program.
QString ownScript(const QString &name);

} // namespace quillon
