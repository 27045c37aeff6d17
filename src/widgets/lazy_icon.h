#pragma once

#include <QIcon>

namespace quillon {

/// The program's picture of @p name, without a folder and an ending. Its file is read when it is first drawn:
/// reading all of them would take a good part of the time until the first window.
QIcon lazyIcon(const QString &name);

} // namespace quillon
