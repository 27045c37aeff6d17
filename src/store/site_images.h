#pragma once

#include <QString>

#include <optional>

/// Where the pictures of sites are: those of the program, and those of the author in the data folder. Whoever
/// shows or moves one asks here.
namespace quillon::site_images {

/// Where the program's own pictures are.
inline const QString programImages = QStringLiteral(":/icons/");

/// The folder of the author's pictures, with a separator at its end.
QString folder();

/// The file that holds the program's picture of @p site, if there is one; it goes before one of the author's.
QString programImage(const QString &site, const QString &images = programImages);

/// The file that holds the author's picture of @p site, if there is one; none for a name that cannot be a
/// file's.
std::optional<QString> authorImage(const QString &site);

} // namespace quillon::site_images
