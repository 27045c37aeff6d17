#pragma once

#include <QString>

/// What the program says of itself.
namespace quillon::application_info {

/// The running program's version, as the build names it.
inline const QString version = QStringLiteral(QUILLON_VERSION);
/// The product's page, its help and its support page.
inline const QString webPage = QStringLiteral("https://quillon.example/");
inline const QString helpPage = QStringLiteral("https://quillon.example/help");
inline const QString supportPage = QStringLiteral("https://quillon.example/support");
/// Where the publisher of the PAD standard explains it.
inline const QString padStandardPage = QStringLiteral("http://www.asp-shareware.org/pad");

} // namespace quillon::application_info
