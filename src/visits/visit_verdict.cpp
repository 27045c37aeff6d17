#include "visits/visit_verdict.h"

#include "platform/translated_text.h"
#include "platform/web_address.h"
#include "submission/load_errors.h"

#include <algorithm>
#include <array>
#include <climits>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

using Verdict = VisitVerdict;

constexpr std::array<QStringView, 4> names = {u"reachable", u"moved", u"gone", u"cannot-say"};

constexpr std::array<QStringView, 4> titles = {
    QUILLON_TR_NOOP("VisitVerdict", "reachable"), QUILLON_TR_NOOP("VisitVerdict", "moved"),
    QUILLON_TR_NOOP("VisitVerdict", "gone"), QUILLON_TR_NOOP("VisitVerdict", "cannot say")};

constexpr QStringView nameUnknown = u"net::ERR_NAME_NOT_RESOLVED";

/// What the statuses of a range, both ends included, mean. The first row that fits counts; the last one fits
/// whatever a server sends.
struct StatusRule
{
    int first;
    int last;
    Verdict verdict;
    QStringView detail;
};

// Fixed English: the details are kept in the journal, and scripts read them there.
constexpr StatusRule statusRules[] = {
    {200, 299, Verdict::Reachable, u"The page is there."},
    {404, 404, Verdict::Gone, u"The server knows no such page."},
    {410, 410, Verdict::Gone, u"The server says that the page is gone for good."},
    {401, 401, Verdict::CannotSay, u"The server asks for a login."},
    {403, 403, Verdict::CannotSay, u"The server lets nobody in without a look at the browser, or at all."},
    {429, 429, Verdict::CannotSay, u"The server takes the visit for one of a robot."},
    {503, 503, Verdict::CannotSay, u"The server is busy, or takes the visit for one of a robot."},
    {500, 599, Verdict::CannotSay, u"The server has a fault."},
    {INT_MIN, INT_MAX, Verdict::CannotSay, u"The server refuses."},
};

/// @p address without what makes no other place of it: the scheme, "www.", a slash at the end, the fragment.
QString place(const QUrl &address)
{
    QString host = unmistakableHost(address).toLower();
    if (host.startsWith(u"www."))
        host.remove(0, 4);
    QString path = address.path(QUrl::FullyEncoded);
    while (path.endsWith(u'/'))
        path.chop(1);
    const QString query = address.hasQuery() ? u'?' + address.query(QUrl::FullyEncoded) : QString();
    return host + path + query;
}

VisitJudgement judgedByStatus(const Visit &visit)
{
    const auto *rule = std::ranges::find_if(statusRules, [&visit](const StatusRule &each) {
        return visit.status >= each.first && visit.status <= each.last;
    });
    return {rule->verdict, u"%1 (%2)"_s.arg(rule->detail).arg(visit.status)};
}

} // namespace

QString name(VisitVerdict verdict)
{
    return names[size_t(verdict)].toString();
}

QString title(VisitVerdict verdict)
{
    return translated("VisitVerdict", titles[size_t(verdict)]);
}

VisitJudgement judged(const QString &asked, const Visit &visit)
{
    if (!visit.failure.isEmpty())
        return {isNameUnknown(visit) ? Verdict::Gone : Verdict::CannotSay,
                loadErrorDescription(visit.failure)};
    VisitJudgement judgement = judgedByStatus(visit);
    const QUrl reached(visit.reached);
    if (judgement.verdict == Verdict::Reachable && place(reached) != place(QUrl::fromUserInput(asked)))
        return {Verdict::Moved, unmistakableAddress(reached)};
    if (judgement.verdict == Verdict::Reachable)
        judgement.detail = fixedEnglish(visit.isFile ? u"A file is there." : u"The page is there.");
    return judgement;
}

bool isNameUnknown(const Visit &visit)
{
    return visit.failure == nameUnknown;
}

Visit withoutNetwork(Visit visit)
{
    if (isNameUnknown(visit))
        visit.failure = u"net::ERR_NAME_RESOLUTION_FAILED"_s;
    return visit;
}

bool showsNetwork(const Visit &visit)
{
    const QString host = QUrl(visit.reached).host();
    // Neither a number nor a name of this computer's or of its neighbours'.
    return visit.status != 0 && host.contains(u'.') && !host.back().isDigit();
}

} // namespace quillon
