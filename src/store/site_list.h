#pragma once

#include "platform/string_dictionary.h"

#include <QStringView>

#include <optional>

/// The two files in the data folder that hold the author's changes to the catalogue of sites: property lists
/// of one dictionary, address by name.
namespace quillon::site_list {

/// Sites that the author added, and edited copies of default ones.
inline constexpr QStringView userSites = u"sites.qnrc";
/// Default sites that the author removed or replaced by an edited copy.
inline constexpr QStringView ignoredSites = u"ignore.qnrc";

/// The sites in the file @p fileName of the data folder; none when it is missing, no dictionary or cannot be
/// read.
std::optional<StringDictionary> stored(QStringView fileName);

/// The sites in the file @p fileName of the data folder, which is made empty where it is missing. None when
/// the file is no dictionary or cannot be read.
std::optional<StringDictionary> read(QStringView fileName);

/// Whether what the file @p fileName of the data folder holds is known: it is missing, or it can be read and
/// is a list of sites.
bool isUnderstood(QStringView fileName);

/// Replaces the file @p fileName of the data folder. What is there but cannot be understood is kept beside it
/// first, under the name with ".unreadable" added; false, and nothing written, when that cannot be done.
bool write(QStringView fileName, const StringDictionary &sites);

} // namespace quillon::site_list
