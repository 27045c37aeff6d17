#pragma once

#include <QStringView>

#include <span>

namespace quillon {

/// A download site that Quillon knows by itself. The texts are string literals, so that they live for ever.
struct DefaultSite
{
    QStringView name; ///< The site's key in tables, site lists and marks.
    QStringView url;  ///< Its submission page.
};

/// All default sites; names are unique, but two of them ("NewFreeDownloads" and "NFD") share an address.
extern const std::span<const DefaultSite> defaultSites;

/// Builds mwqnDefaultSitesDict from them, once; every later call does nothing.
void setDefaultSites();

} // namespace quillon
