#pragma once

#include <QString>

namespace quillon {

/// The summary text @p summary with its mark of the site @p from renamed to @p to.
///
/// Names are taken as patterns (">from,", ",from,", ",from<") and templates and applied to the whole text, so
/// that a point in a name stands for any character; a pattern that does not compile renames nothing. A text
/// whose list does not hold @p from, or holds nothing else, is as it was.
QString withRenamedMark(const QString &summary, const QString &from, const QString &to);

/// Gives the site @p from the name @p to in the marks of all titles and, when there is any title, in the
/// pictures of sites. The same name changes nothing.
void renameSite(const QString &from, const QString &to);

/// Where the program's own pictures of sites are, each with the site's name and ".png".
inline const QString siteImageResources = QStringLiteral(":/site-images/");

/// Moves the picture of the site @p from in the data folder to the name @p to; the program's own picture in
/// @p resources goes before one of the data folder. Names that cannot be a file's have no picture.
void renameSiteImage(const QString &from, const QString &to, const QString &resources = siteImageResources);

} // namespace quillon
