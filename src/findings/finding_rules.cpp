#include "findings/finding.h"

#include <algorithm>
#include <array>

namespace quillon::findings {

namespace {

using enum Severity;

// clang-format off
constexpr FindingRule findingRules[] = {
    {u"text-missing", Error, u"A field that has to be filled in is empty."},
    {u"text-too-short", Error, u"A text is shorter than the form allows."},
    {u"text-too-long", Error, u"A text is longer than the form allows."},
    {u"email-missing", Error, u"An e-mail address is empty."},
    {u"email-unfit", Error, u"An e-mail address is not of the kind that the form takes."},
    {u"address-missing", Error, u"A web address that has to be given is empty."},
    {u"address-too-long", Error, u"A web address is longer than the form allows."},
    {u"address-ending", Error, u"A web address does not end as the kind of its file asks for."},
    {u"date-missing", Error, u"A part of the release date is empty."},
    {u"date-out-of-range", Error, u"A part of a date is no number that a date can have there."},
    {u"currency-missing", Error, u"The price in another currency has no currency."},
    {u"price-missing", Error, u"There is a currency without a price in it."},
    {u"price-too-long", Error, u"The price in another currency is so long that it is not looked at any more."},
    {u"size-missing", Error, u"The size in bytes is empty."},
    {u"choice-missing", Error, u"Nothing is chosen from a list."},
    {u"tick-missing", Error, u"Nothing is ticked in a list."},
    {u"expire-count-missing", Error, u"The program is said to expire, but not after how many days or uses."},
    {u"expire-count-too-long", Error, u"The expire count has more digits than the form allows."},
    {u"expire-count-unasked", Error, u"There is an expire count, but the program is not said to expire."},
    {u"expire-base-missing", Error, u"The program is said to expire, but not what the expire count counts."},
    {u"expire-base-unasked", Error, u"There is an expire base, but the program is not said to expire."},
    {u"recorded-earlier", Error, u"An error was recorded that the field does not have any more."},

    {u"size-mismatch", Warning, u"The size in kilobytes or megabytes is not that of the bytes."},
    {u"date-impossible", Warning, u"The release date is no day of the calendar."},
    {u"release-in-future", Warning, u"The release date is in the future."},
    {u"release-old", Warning, u"The release date is years older than the copyright."},
    {u"copyright-old", Hint, u"The author's copyright ends before the year of the release."},
    {u"version-mismatch", Warning, u"A download address names another version than the program has."},
    {u"address-http", Hint, u"An address is insecure, where another of the same server is secure."},
    {u"download-ending", Hint, u"A download address leads to a page, as far as its end tells."},
    {u"descriptions-same", Hint, u"A longer description is the same as a shorter one."},
    {u"text-cut", Warning, u"A description ends in the middle of a word."},
    {u"keyword-twice", Hint, u"A keyword stands there more than once."},
    {u"language-wrong", Warning, u"A text among the English ones is in another language."},
    {u"xml-unreadable", Warning, u"A text keeps XML parsers from reading the file."},
};
// clang-format on

} // namespace

std::span<const FindingRule> rules()
{
    return findingRules;
}

const FindingRule &rule(QStringView id)
{
    const auto *found = std::ranges::find(findingRules, id, &FindingRule::id);
    Q_ASSERT(found != std::end(findingRules));
    return *found;
}

QStringView name(Severity severity)
{
    static constexpr std::array<QStringView, 3> names = {u"error", u"warning", u"hint"};
    return names[size_t(severity)];
}

} // namespace quillon::findings
