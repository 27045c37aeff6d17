#include "visits/site_check.h"

#include "journal/journal.h"
#include "journal/site_knowledge.h"
#include "ledger/matrix.h"
#include "store/process_state.h"
#include "visits/visit_verdict.h"

#include <QUrl>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace quillon {

Result<QList<OnlineCheck::Row>> SiteCheck::usedSites()
{
    const Result<ReadMatrix> read = readMatrix();
    if (!read)
        return read.error();
    QList<Row> rows;
    for (const QString &site : read->matrix.sites()) {
        const auto url = mwqnSCPreallSitesDict.find(site);
        if (url == mwqnSCPreallSitesDict.end())
            continue;
        Row row{.what = site, .request = {.address = url->second}};
        if (isSearchFor(site, url->second)) {
            row.result = title(VisitVerdict::CannotSay);
            row.detail = tr("The address is a search for the site. It is not visited.");
        }
        rows.append(row);
    }
    return rows;
}

void SiteCheck::take(int row, const Visit &visit)
{
    const auto [verdict, detail] = judged(table()[row].request.address, visit);
    show(row, title(verdict), detail);
    const Row &found = table()[row];
    const site_knowledge::Finding finding{.time = found.time, .verdict = name(verdict), .detail = detail};
    (void)Journal::ofDataFolder().change([&found, &finding](Database &database) { // The status bar tells.
        return site_knowledge::keepFinding(database, found.what, finding);
    });
}

bool isSearchFor(const QString &site, const QString &address)
{
    const QUrlQuery query{QUrl(address)};
    for (const auto &[key, value] : query.queryItems(QUrl::FullyDecoded)) {
        if (value.contains(u'"' + site + u'"'))
            return true;
    }
    return false;
}

} // namespace quillon
