#pragma once

#include "store/site_list.h"
#include "submission/site_catalogue.h"

namespace quillon {

/// The author's changes to the catalogue of sites: what the two site lists hold.
struct SiteLists
{
    StringDictionary user;
    StringDictionary ignored;

    /// The default sites with these changes.
    [[nodiscard]] SiteCatalogue catalogue() const;

    /// What an edited site makes of them. @p old and @p edited may be one and the same.
    [[nodiscard]] SiteLists withEdit(const Site &old, bool wasDefault, const Site &edited,
                                     bool isDefault) const;

    /// The lists that show each site which these or @p after show.
    [[nodiscard]] SiteLists showingAlso(SiteLists after) const;
};

/// The two lists as they were read, once: what is decided is decided by them, and nothing else is replaced. A
/// list that cannot be read must not be taken for an empty one, also not for the moment of a look.
struct ReadSiteLists
{
    site_list::ReadList user;
    site_list::ReadList ignored;

    /// Reads both to be changed (site_list::readToChange).
    static Result<ReadSiteLists> read();

    [[nodiscard]] SiteLists sites() const { return {user.sites, ignored.sites}; }

    /// Writes what is other in @p after, the list @p first before the other: of two writes the second may
    /// fail, and a site shall rather be there twice than not at all. What is written counts as read from then
    /// on.
    Result<> store(const SiteLists &after, QStringView first);
};

/// Whether the catalogue's @p site is the default one, and not an own one with the name and address of one
/// that is among the @p hidden.
bool isListedDefault(const Site &site, const QStringList &hidden);

/// Whether a site that gets the name and address of @p edited becomes the default one. It cannot while an
/// ignored site of another name hides that one by its address.
bool becomesDefault(const Site &edited, StringDictionary ignored);

} // namespace quillon
