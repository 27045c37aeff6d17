#include "visits/site_check.h"

#include "journal/journal.h"
#include "journal/site_knowledge.h"
#include "ledger/matrix.h"
#include "store/process_state.h"

#include <QUrl>
#include <QUrlQuery>

#include <utility>

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
            row.result = name(VisitVerdict::CannotSay);
            row.detail = u"The address is a search for the site. It is not visited."_s;
        }
        rows.append(row);
    }
    return rows;
}

void SiteCheck::take(int row, const Visit &visit)
{
    if (visit.status != 0 && !std::exchange(m_hasNetwork, true)) {
        for (const Unsure &each : std::exchange(m_unsure, {}))
            settle(each.row, each.judgement);
    }
    VisitJudgement judgement = judged(table()[row].request.address, visit);
    if (isNameUnknown(visit) && !m_hasNetwork) {
        m_unsure.append({row, judgement});
        judgement = {VisitVerdict::CannotSay, u"No server has been found yet; there may be no network."_s};
    }
    settle(row, judgement);
}

void SiteCheck::settle(int row, const VisitJudgement &judgement)
{
    show(row, name(judgement.verdict), judgement.detail);
    const Row &found = table()[row];
    (void)Journal::ofDataFolder().change([&found](Database &database) { // The status bar tells.
        return site_knowledge::keepFinding(
            database, found.what, {.time = found.time, .verdict = found.result, .detail = found.detail});
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
