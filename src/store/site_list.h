#pragma once

#include "platform/result.h"
#include "platform/string_dictionary.h"

#include <QStringView>

/// The two files in the data folder that hold the author's changes to the catalogue of sites: property lists
/// of one dictionary, address by name.
namespace quillon::site_list {

/// Sites that the author added, and edited copies of default ones.
inline constexpr QStringView userSites = u"sites.qnrc";
/// Default sites that the author removed or replaced by an edited copy.
inline constexpr QStringView ignoredSites = u"ignore.qnrc";

/// The sites in the file @p fileName of the data folder: missing, unreadable and unintelligible are told
/// apart.
Result<StringDictionary> stored(QStringView fileName);

/// The same, but a missing file is made, with no sites.
Result<StringDictionary> read(QStringView fileName);

/// A list for whoever is going to change it, with the bytes that it was read from.
struct ReadList
{
    StringDictionary sites;
    QByteArray bytes;
};

/// The same, read once to be changed and written: a file that is unintelligible counts as one without sites,
/// since write() keeps it beside. One that cannot be read is kept in mwqnFailedWrites until it is written.
Result<ReadList> readToChange(QStringView fileName);

/// Whether a list can hold @p text and be well-formed: not with a control character other than a tab and a
/// line end.
bool canHold(QStringView text);

/// Replaces the file @p fileName of the data folder. What is there but cannot be understood is kept beside it
/// first, under the name with ".unreadable" added; nothing is written when that cannot be done, nor in place
/// of a file that cannot be read. A list too large to be read again (property_list.h) is refused.
Result<> write(QStringView fileName, const StringDictionary &sites);

/// The same in place of what was read as @p old, and of nothing else.
Result<> write(QStringView fileName, const StringDictionary &sites, const Result<QByteArray> &old);

} // namespace quillon::site_list
