#pragma once

#include <QStringView>

/// The two files in the data folder that hold the author's changes to the catalogue of sites.
namespace quillon::site_list {

/// Sites that the author added, and edited copies of default ones.
inline constexpr QStringView userSites = u"sites.qnrc";
/// Default sites that the author removed or replaced by an edited copy.
inline constexpr QStringView ignoredSites = u"ignore.qnrc";

} // namespace quillon::site_list
