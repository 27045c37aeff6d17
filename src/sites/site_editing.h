#pragma once

#include "platform/result.h"
#include "submission/site_catalogue.h"

#include <QString>
#include <QStringList>

namespace quillon {

/// What came of adding or changing a site.
struct SiteEdit
{
    enum Outcome
    {
        Done,
        Empty, ///< No name, or no address but a scheme.
        NameExists,
        UrlExists,
        BothExist,
        NotXml,      ///< The name or the address holds a character that no XML file can hold.
        NotMarkable, ///< Titles are marked for the site, and marks cannot bear its new name.
        NotStored    ///< The lists could not be read or written; the sentence is the failure's line.
    };
    Outcome outcome = Done;
    QString sentence = {}; ///< What the author is told.
    Error failure = {};    ///< Of what could not be stored.
};

/// What can be done to the catalogue of sites, without a window: the site list editor and the command line
/// both call these. Every change is stored at once.
namespace site_editing {

/// The catalogue as the two site lists have it now; a list that cannot be understood adds nothing.
SiteCatalogue currentCatalogue();

/// The same for somebody who only looks, with nothing made: a missing list stays missing. An error when one
/// cannot be read.
Result<SiteCatalogue> storedCatalogue();

/// An address as it was typed, with each blank as "%20", and "http://" before it when it has no scheme.
QString normalisedUrl(const QString &typed);

/// Adds an own site, its address normalised, both without blanks at their ends. Its name and address must be
/// new in the catalogue; those of default sites that were removed may be used again.
SiteEdit addSite(const QString &name, const QString &url);

/// Gives the catalogue's site @p old another name and address, and its marks in all titles the new name.
///
/// A default site is hidden, as if removed, and an own site stands for it. An own site that gets the name and
/// an address of default sites goes, and the default site of that name is shown again; unless another removed
/// site has the same address, which keeps the default one hidden: then the own site stays. Another site that
/// has the new name or address already is no obstacle.
///
/// When something cannot be stored, both names may be listed; the same edit can then be made again.
SiteEdit editSite(const Site &old, const QString &name, const QString &url);

/// Removes sites of the catalogue by name: default ones are hidden from now on, own ones are gone.
Result<> removeSites(const QStringList &names);

/// Shows default sites again that were removed under these names.
Result<> restoreSites(const QStringList &names);

} // namespace site_editing

} // namespace quillon
