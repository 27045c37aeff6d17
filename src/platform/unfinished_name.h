#pragma once

#include <QByteArray>

/// Names of Quillon's own for what is not complete yet or not quite gone. Only a crash leaves such a thing
/// behind, and nothing of the author's has such a name: sixteen letters and digits stand in the middle.
namespace quillon::unfinished_name {

inline constexpr char file[] = ".tmp";    ///< Ends the name of a file that is being written.
inline constexpr char folder[] = ".new";  ///< Ends the name of a folder that is being filled.
inline constexpr char deleted[] = ".old"; ///< Ends the name of what is being removed.

/// A new name with the end @p end, which nobody else has, and short enough for any file system.
QByteArray make(QByteArrayView end);

/// Whether make() gives such names for @p end.
bool is(QByteArrayView name, QByteArrayView end);

} // namespace quillon::unfinished_name
