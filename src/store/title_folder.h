#pragma once

#include "platform/result.h"

#include <QString>

#include <optional>

/// Where a title's files lie: a folder of its own in the data folder.
namespace quillon::title_folder {

inline constexpr QStringView extension = u".qndata";
inline constexpr QStringView summaryFile = u"general.qnxmld";
inline constexpr QStringView padFile = u"data.qnxml";
inline constexpr QStringView errorLog = u"error.log";

/// Whether @p name, with the extension, can be a folder's (isEntryName()).
bool isUsableName(QStringView name);

/// The folder of the title @p name, without a separator at its end; none for a name that is not usable, which
/// could lead out of the data folder.
std::optional<QString> path(QStringView name);

/// Whether anything, file or folder or broken link, has the title folder's name, or why that cannot be told.
Result<bool> isThere(QStringView name);

/// The same; true also when it cannot be told.
bool exists(QStringView name);

} // namespace quillon::title_folder
