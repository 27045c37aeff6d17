#pragma once

#include "platform/result.h"
#include "store/site_images.h"

namespace quillon {

/// The summary text @p summary with its mark of the site @p from renamed to @p to.
///
/// Names are taken as patterns (">from,", ",from,", ",from<") and templates and applied to the whole text, so
/// that a point in a name stands for any character; a pattern that does not compile renames nothing. A text
/// whose list does not hold @p from, or holds nothing else, is as it was.
QString withRenamedMark(const QString &summary, const QString &from, const QString &to);

/// Whether any title is marked for @p site; not known when a summary cannot be read.
Result<bool> isMarkedAnywhere(const QString &site);

/// Gives the site @p from the name @p to in the marks of all titles, in the journal and, when there is any
/// title, in the pictures of sites. The same name changes nothing. On an error, which is told as a failure
/// too, the other titles have got it, and the pictures are as they were; doing it again completes it.
Result<> renameSite(const QString &from, const QString &to);

/// Gives the site @p to the picture that the site @p from has: the program's own, of which it gets a copy, or
/// else the author's, which is moved. Names that cannot be a file's have no picture.
Result<> renameSiteImage(const QString &from, const QString &to,
                         const QString &programImages = site_images::programImages);

} // namespace quillon
