#include "ledger/version_order.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

bool isDigit(QChar unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// Takes the next part off @p version: a number without zeros before it, or letters; what is neither stands
/// between parts. Empty at the end.
QStringView takePart(QStringView &version)
{
    const auto isIn = [](QChar unit) { return isDigit(unit) || unit.isLetter(); };
    while (!version.isEmpty() && !isIn(version.front()))
        version = version.sliced(1);
    qsizetype end = 0;
    while (end < version.size() && isIn(version[end]) && isDigit(version[end]) == isDigit(version.front()))
        ++end;
    QStringView part = version.first(end);
    version = version.sliced(end);
    while (part.size() > 1 && part.front() == u'0')
        part = part.sliced(1);
    return part;
}

/// Versions with these words come before the one without.
bool isBeforeRelease(QStringView part)
{
    static constexpr std::array<QStringView, 6> words = {u"alpha", u"beta",    u"dev",
                                                         u"pre",   u"preview", u"rc"};
    return std::ranges::any_of(
        words, [part](QStringView word) { return part.compare(word, Qt::CaseInsensitive) == 0; });
}

constexpr int numberRank = 3;

/// What comes first where versions differ in kind.
int rank(QStringView part)
{
    if (part.isEmpty())
        return 1;
    if (isDigit(part.front()))
        return numberRank;
    return isBeforeRelease(part) ? 0 : 2;
}

std::weak_ordering partOrder(QStringView left, QStringView right)
{
    if (const auto ranks = rank(left) <=> rank(right); std::is_neq(ranks))
        return ranks;
    if (rank(left) == numberRank && left.size() != right.size())
        return left.size() <=> right.size();
    return left.compare(right, Qt::CaseInsensitive) <=> 0;
}

} // namespace

std::weak_ordering versionOrder(QStringView left, QStringView right)
{
    for (;;) {
        const QStringView leftPart = takePart(left);
        const QStringView rightPart = takePart(right);
        const auto order = partOrder(leftPart, rightPart);
        if (std::is_neq(order) || leftPart.isEmpty())
            return order;
    }
}

} // namespace quillon
