#pragma once

#include <QString>

/// What the program says of itself.
namespace quillon::application_info {

/// The running program's version, as the build names it.
inline const QString version = QStringLiteral(QUILLON_VERSION);
/// The product's page, which every PAD file names.
inline const QString webPage = QStringLiteral("https://quillon.example/");
/// By which software centres know the program: the id of its metainfo file.
inline const QString softwareCentreAddress = QStringLiteral("appstream:example.quillon.Quillon");
/// Where the publisher of the PAD standard explains it.
inline const QString padStandardPage = QStringLiteral("http://www.asp-shareware.org/pad");

} // namespace quillon::application_info
