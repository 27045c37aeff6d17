#pragma once

#include "journal/ledger.h"
#include "store/summary_file.h"

#include <QList>
#include <QSet>

namespace quillon {

/// Where a title stands with a site that it was sent to, or about which the author noted something.
struct Standing
{
    QString site;
    QString version = {}; ///< Of the title, as the site has it; empty when that is not known.
    ledger::State state = ledger::State::Sent;
    bool isMarked = false;
    bool isCurrent = false; ///< The version there is the title's, letter for letter.
    QString address = {};   ///< Of the listing; empty when it is not known.
    QString note = {};

    /// Whether another version is there, on a site that has not gone.
    [[nodiscard]] bool isStale() const { return !isCurrent && state != ledger::State::Gone; }
};

/// The version of the first mark for @p site in @p summary; none without one.
std::optional<QString> markedVersion(const Summary &summary, const QString &site);

/// Where the title with this summary stands with each site, in the order of its marks and then of @p entries,
/// which are its entries of the ledger, older ones first. A mark tells the version there; without one,
/// because its site has left the catalogue, the newest entry does. Where the author took the mark away,
/// nothing is.
/// Those of @p gone, which the author knows to be no more, are gone.
QList<Standing> standings(const Summary &summary, const QList<ledger::Entry> &entries,
                          const QSet<QString> &gone = {});

/// That of @p site among @p standings; null without one.
const Standing *standingAt(const QList<Standing> &standings, const QString &site);

} // namespace quillon
