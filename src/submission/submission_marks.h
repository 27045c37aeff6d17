#pragma once

#include "platform/result.h"

#include <QString>

/// The record of where a title was submitted, and at which version: two lists in its summary file.
///
/// Names and versions go in as they stand, so that one with a "," in it counts as two.
namespace quillon::submission_marks {

/// What a version is called that a title did not have when it was marked.
inline constexpr QStringView unknownVersion = u"Unknown";

/// The summary text @p summary with @p site marked at the title's current version. A site that is marked
/// already gets the current version even when that is empty, and the list of versions then ends with ",".
/// Without a list of sites, or of versions, nothing is added to it.
QString withMark(const QString &summary, const QString &site);

/// The summary text @p summary without the last mark whose site's name holds @p site, in any case; doubled
/// commas and commas beside a tag go from the whole text. Without such a mark the text is as it was.
QString withoutMark(const QString &summary, const QString &site);

/// Whether a mark for @p site reads as that site among marks for others, and still does when one of these
/// goes; not one with a comma in its name, with markup or the beginning of it, or with "<" or ">" at an end.
bool canBeKept(const QString &site);

/// Marks @p site in the selected title's summary file; the ledger follows, also when nothing changes there
/// because the site is marked at this version already. What keeps the ledger from it is no error of the mark.
Result<> markSubmitted(const QString &site);

/// Removes the mark of @p site from the selected title's summary file; likewise.
Result<> removeMark(const QString &site);

} // namespace quillon::submission_marks
