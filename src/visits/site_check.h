#pragma once

#include "platform/result.h"
#include "visits/online_check.h"

namespace quillon {

/// Visits the addresses of the sites that any title was ever sent to, and keeps for each what was found.
class SiteCheck : public OnlineCheck
{
    Q_OBJECT
public:
    /// The sites that are to be visited, in alphabetical order: those of the catalogue that were used.
    static Result<QList<Row>> usedSites();

    using OnlineCheck::OnlineCheck;

protected:
    void take(int row, const Visit &visit) override;
};

/// Whether @p address only looks @p site up in a search engine: nothing is known there of the site.
bool isSearchFor(const QString &site, const QString &address);

} // namespace quillon
