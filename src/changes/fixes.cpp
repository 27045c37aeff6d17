#include "changes/fixes.h"

#include "changes/text_cutting.h"
#include "pad/file_size.h"
#include "platform/translated_text.h"
#include "validation/field_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::fixes {

namespace {

using enum FieldId;

constexpr QStringView originPrefix = u"fix:";
constexpr std::array emails = {authorEmail, contactEmail, generalEmail, supportEmail, salesEmail};
constexpr std::array persons = {std::pair{authorFirstName, authorLastName},
                                std::pair{contactFirstName, contactLastName}};

/// The values of a title while fixes are made, and what they have changed.
class Draft
{
public:
    explicit Draft(const TitleState &state) : m_title(state.title), m_values(state.judged.values) {}

    [[nodiscard]] const QString &title() const { return m_title; }

    [[nodiscard]] const QString &of(FieldId field) const { return m_values[size_t(field)]; }
    void set(FieldId field, const QString &value) { m_values[size_t(field)] = value; }
    [[nodiscard]] const FormValues &values() const { return m_values; }

private:
    QString m_title;
    FormValues m_values;
};

bool isAddress(const QString &text)
{
    return UniversalConverters::isEmailAddress(field_rules::emailBounds, text);
}

/// Nothing, or nothing but zeros: a number that says no more than none.
bool isNothing(const QString &number)
{
    return std::all_of(number.begin(), number.end(),
                       [](QChar sign) { return sign == u'0' || sign == u'.' || sign == u' '; });
}

/// The one that all of @p draft's addresses are; empty without one, or with several.
QString onlyAddress(const Draft &draft)
{
    QString only;
    for (const FieldId field : emails) {
        const QString &address = draft.of(field);
        if (!isAddress(address) || address.compare(only, Qt::CaseInsensitive) == 0)
            continue;
        if (!only.isEmpty())
            return {};
        only = address;
    }
    return only;
}

bool isSomebodyElse(const Draft &draft)
{
    const auto differ = [&draft](FieldId one, FieldId other) {
        return !draft.of(one).isEmpty() && !draft.of(other).isEmpty() && draft.of(one) != draft.of(other);
    };
    return differ(authorFirstName, contactFirstName) || differ(authorLastName, contactLastName);
}

void fillEmails(Draft &draft)
{
    const QString only = onlyAddress(draft);
    const QString &contact = draft.of(contactEmail);
    const QString company = !only.isEmpty() ? only : isAddress(contact) ? contact : QString();
    for (const FieldId field : {generalEmail, supportEmail, salesEmail}) {
        if (draft.of(field).isEmpty())
            draft.set(field, company);
    }
    for (const FieldId field : {authorEmail, contactEmail}) {
        if (draft.of(field).isEmpty() && !isSomebodyElse(draft))
            draft.set(field, only);
    }
}

void fillNames(Draft &draft)
{
    if (draft.of(programName).isEmpty() &&
        field_rules::of(programName).summary.bounds.hold(draft.title().size()))
        draft.set(programName, draft.title());
    if (isSomebodyElse(draft))
        return;
    const auto [author, contact] = persons;
    for (const auto &[to, from] : {std::pair{contact, author}, std::pair{author, contact}}) {
        if (draft.of(to.first).isEmpty() && draft.of(to.second).isEmpty()) {
            draft.set(to.first, draft.of(from.first));
            draft.set(to.second, draft.of(from.second));
        }
    }
}

void clearPhones(Draft &draft)
{
    for (const FieldId field : {generalPhone, generalFax, supportPhone, salesPhone}) {
        const QString &number = draft.of(field);
        if (std::none_of(number.begin(), number.end(), [](QChar sign) { return sign.isDigit(); }))
            draft.set(field, {});
    }
}

/// Whether nothing but what is unasked for speaks of an end of the trial time.
bool neverExpires(const Draft &draft)
{
    return draft.of(expireCheckBox) != u"Y" && isNothing(draft.of(expireCount)) &&
           (draft.of(expireDateDay).isEmpty() || draft.of(expireDateMonth).isEmpty() ||
            draft.of(expireDateYear).isEmpty());
}

void clearExpireBase(Draft &draft)
{
    if (neverExpires(draft))
        draft.set(expireBasePopUp, {});
}

void clearExpireCount(Draft &draft)
{
    if (draft.of(expireCheckBox) != u"Y" && isNothing(draft.of(expireCount)))
        draft.set(expireCount, {});
}

void clearCurrency(Draft &draft)
{
    if (draft.of(otherPrice).isEmpty())
        draft.set(otherPricePopUp, {});
}

void clearOtherPrice(Draft &draft)
{
    if (draft.of(otherPricePopUp).isEmpty() && isNothing(draft.of(otherPrice)) &&
        isNothing(draft.of(priceInUSD)))
        draft.set(otherPrice, {});
}

void cutTexts(Draft &draft)
{
    for (const FieldId field : {requirementsView, changeInformationView, expireInfo, pd45CharDescript,
                                pd80CharDescript, pd250CharDescript, pd450CharDescript, pd2000CharDescript}) {
        const int most = field_rules::of(field).summary.bounds.max;
        const QString cut =
            draft.of(field).size() > most ? text_cutting::cut(draft.of(field), most) : QString();
        if (!cut.isEmpty())
            draft.set(field, cut);
    }
    const int most = field_rules::of(keywordsView).summary.bounds.max;
    if (draft.of(keywordsView).size() > most)
        draft.set(keywordsView, text_cutting::keywords(draft.of(keywordsView), most));
}

void dropRepeatedKeywords(Draft &draft)
{
    const QString &keywords = draft.of(keywordsView);
    draft.set(keywordsView, text_cutting::keywords(keywords, int(keywords.size())));
}

void calculateSizes(Draft &draft)
{
    const QString &bytes = draft.of(sizeInBytes);
    const bool isNumber =
        std::all_of(bytes.begin(), bytes.end(), [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    if (!isNumber || isNothing(bytes))
        return;
    draft.set(programSizeKB, file_size::withoutUnit(file_size::kilobytes(bytes)));
    draft.set(programSizeMB, file_size::withoutUnit(file_size::megabytes(bytes)));
}

/// A rule, and what makes its changes.
struct Row
{
    FixRule rule;
    void (*make)(Draft &draft);
};

// clang-format off
constexpr Row table[] = {
    {{u"email-missing", u"An empty e-mail address becomes the only one that the title has in another field; where "
                        u"there are several, those of the company become the contact's."}, fillEmails},
    {{u"text-missing", u"An empty program name becomes the title's; the contact's name becomes the author's where it "
                       u"is empty, or the other way round."}, fillNames},
    {{u"text-too-short", u"A phone number without a digit goes."}, clearPhones},
    {{u"expire-base-unasked", u"An expire base goes where nothing says that the program expires."}, clearExpireBase},
    {{u"expire-count-unasked", u"An expire count of 0 goes where the program is not said to expire."}, clearExpireCount},
    {{u"price-missing", u"A currency goes that no price is in."}, clearCurrency},
    {{u"currency-missing", u"A price of 0 in no currency goes where the price in USD is nothing, too."}, clearOtherPrice},
    {{u"keyword-twice", u"A keyword that stands there already goes."}, dropRepeatedKeywords},
    {{u"text-too-long", u"A text that is too long ends after the last sentence that fits or, where much would be "
                        u"lost, the last word; of keywords those stay that fit."}, cutTexts},
    {{u"size-mismatch", u"Kilobytes and megabytes are reckoned from the bytes."}, calculateSizes},
};
// clang-format on

} // namespace

const QList<FixRule> &rules()
{
    static const QList<FixRule> rules = [] {
        QList<FixRule> all;
        for (const Row &row : table)
            all.append(row.rule);
        return all;
    }();
    return rules;
}

bool exists(QStringView id)
{
    return std::ranges::any_of(table, [id](const Row &row) { return row.rule.id == id; });
}

QList<Change> changesFor(const TitleState &state, const QStringList &only)
{
    Draft draft(state);
    std::array<QString, fieldCount> origins;
    for (const Row &row : table) {
        if (!only.isEmpty() && !only.contains(row.rule.id))
            continue;
        const FormValues before = draft.values();
        row.make(draft);
        for (const Change &change : change_sets::between(before, draft.values()))
            origins[size_t(change.field)] = originPrefix + row.rule.id;
    }
    QList<Change> changes = change_sets::between(state.judged.values, draft.values());
    for (Change &change : changes)
        change.origin = origins[size_t(change.field)];
    return changes;
}

ChangePlan plan(const QStringList &titles, const QStringList &only)
{
    ChangePlan plan{.origin = u"fix"_s, .label = fixedEnglish(u"Fix"), .titles = {}};
    change_plans::planEach(plan, titles, [&only](const TitleState &state) {
        return change_plans::planned(state, changesFor(state, only));
    });
    return plan;
}

QString idOf(const Change &change)
{
    return change.origin.startsWith(originPrefix) ? change.origin.sliced(originPrefix.size()) : QString();
}

} // namespace quillon::fixes
