#pragma once

#include "journal/database.h"

#include <QList>
#include <QSet>

/// What is known of sites besides their addresses: what the author learned, and what was found when their
/// addresses were last visited. To be called inside of Journal::change() or read().
namespace quillon::site_knowledge {

/// What the author learned of a site.
struct Notes
{
    QString note = {};
    bool needsAccount = false;
    bool readsPad = false; ///< It reads the PAD file by itself.
    bool isGone = false;   ///< Nothing is submitted there any more; it stays in the catalogue.
};

/// What came of a visit.
struct Finding
{
    qint64 time = 0; ///< Milliseconds since 1970 (UTC).
    QString verdict; ///< The name of a visit's verdict.
    QString detail;  ///< In a sentence, or where the site has moved to.
};

struct KnownSite
{
    QString name;
    Notes notes = {};
    std::optional<Finding> found = {};
};

/// All sites that something is known of, in the order of their names.
Result<QList<KnownSite>> all(Database &database);

/// What is known of the site @p name, be it nothing.
Result<KnownSite> of(Database &database, const QString &name);

/// Whether the author has noted that the site @p name is gone.
Result<bool> isGone(Database &database, const QString &name);

/// All sites of which the author has noted so.
Result<QSet<QString>> goneSites(Database &database);

/// Keeps @p notes in the place of what was noted before.
Result<> keepNotes(Database &database, const QString &name, const Notes &notes);

/// Keeps what the last visit has found.
Result<> keepFinding(Database &database, const QString &name, const Finding &finding);

/// Gives what is known of the site @p from to the site @p to.
Result<> renameSite(Database &database, const QString &from, const QString &to);

} // namespace quillon::site_knowledge
