#pragma once

#include "platform/string_dictionary.h"
#include "store/summary_file.h"

#include <QList>
#include <QStringList>

namespace quillon {

/// The sites that a title can be submitted to: the default ones without those that the author removed, and
/// the author's own.
struct SiteCatalogue
{
    QStringList sites;          ///< The author's own first, then the default ones, each part alphabetically.
    QStringList urls;           ///< Their addresses, index for index.
    QStringList ignored;        ///< Default sites that are left out.
    QStringList ignoredUrls;    ///< Their addresses, index for index.
    StringDictionary urlByName; ///< Where a default site and an own one share a name, the default one's.
};

/// A site as a row of the catalogue has it.
struct Site
{
    QString name;
    QString url;
};

/// Merges the three sources. An ignored entry takes out the default site of its name and, besides, the first
/// remaining one of its address; one that matches neither takes out nothing and is not listed.
SiteCatalogue mergedCatalogue(const StringDictionary &defaults, const StringDictionary &ignored,
                              const StringDictionary &userSites);

/// Whether a title was submitted to a site, and at which version; each is named as its picture.
enum class SiteState : quint8
{
    NotValidated, ///< Not submitted.
    OldVers,      ///< Submitted at an older version, or the title has no version now.
    Validated     ///< Submitted at the current version or a later one.
};

QString name(SiteState state);

/// The state of each of @p sites for the title with this summary.
///
/// Versions are compared by the number they begin with (see leadingNumber()), so that 1.10 is older than 1.9;
/// a mark without a version has an empty one.
QList<SiteState> siteStates(const QStringList &sites, const Summary &summary);

/// The decimal number at the start of @p text after blanks: a sign, digits and a point, in any locale; 0
/// where there is none. Neither exponents nor separators of thousands belong to it.
double leadingNumber(QStringView text);

} // namespace quillon
