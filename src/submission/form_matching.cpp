#include "submission/form_matching.h"

#include "platform/plain_text.h"
#include "platform/translated_text.h"
#include "submission/form_memory_match.h"
#include "submission/form_signs.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon::form_matching {

namespace {

using Kind = TitleValue::Kind;

constexpr int leastScore = 3;
constexpr int sureScore = 9;
constexpr int leastContradiction = 2; ///< The weight of a phrase that contradicts another.
constexpr qsizetype longestQuote = 40;

/// One way in which a field says what it is.
struct Voice
{
    QStringView kind; ///< For the author.
    QString text;
    int weight;
    QStringView value = {}; ///< What it speaks for; "" for something that no title has.
    int phrase = 0;         ///< The weight of the phrase in it; 0 when it says nothing.
};

/// A phrase in a text: the words from begin to before end.
struct Found
{
    const form_signs::Phrase *phrase;
    qsizetype begin;
    qsizetype end;
};

bool standsAt(const QStringList &words, qsizetype place, const QList<QStringView> &phrase)
{
    return place + phrase.size() <= words.size() &&
           std::equal(phrase.begin(), phrase.end(), words.begin() + place);
}

/// The phrases in @p words, but for those inside of a longer one.
QList<Found> foundIn(const QStringList &words)
{
    QList<Found> all;
    for (const form_signs::Phrase &each : form_signs::phrases()) {
        const QList<QStringView> phrase = each.words.split(u' ');
        for (qsizetype place = 0; place + phrase.size() <= words.size(); ++place) {
            if (standsAt(words, place, phrase))
                all.append({&each, place, place + phrase.size()});
        }
    }
    QList<Found> longest;
    std::ranges::copy_if(all, std::back_inserter(longest), [&](const Found &inner) {
        return std::ranges::none_of(all, [&](const Found &outer) {
            return outer.begin <= inner.begin && inner.end <= outer.end &&
                   outer.end - outer.begin > inner.end - inner.begin;
        });
    });
    return longest;
}

/// What @p words are about, as far as they reach beyond the first @p before of them: the last phrase, as in
/// "software version", or the last one before a preposition, as in "version of the software".
const form_signs::Phrase *subjectOf(const QStringList &words, qsizetype before = 0)
{
    static const QStringList prepositions{u"of"_s, u"for"_s, u"from"_s, u"in"_s, u"as"_s};
    const Found *subject = nullptr;
    const QList<Found> found = foundIn(words);
    for (const Found &each : found) {
        if (each.end <= before)
            continue;
        const auto between =
            subject ? words.sliced(subject->end, std::max<qsizetype>(0, each.begin - subject->end))
                    : QStringList();
        if (std::ranges::any_of(between, [](const QString &word) { return prepositions.contains(word); }))
            break;
        if (!subject || each.end > subject->end)
            subject = &each;
    }
    return subject ? subject->phrase : nullptr;
}

/// The heading above a field as far as it tells the field from others.
QStringList headingWords(const QString &group)
{
    QStringList words = form_signs::words(group);
    words.removeIf([](const QString &word) {
        return word == u"information" || word == u"info" || word == u"details" || word == u"data" ||
               word == u"your";
    });
    return words;
}

/// Everything that @p field says of itself.
QList<Voice> voicesOf(const PageField &field)
{
    const FieldSigns &signs = field.signs;
    const bool hasLabel = !signs.label.isEmpty();
    QList<Voice> voices{
        {.kind = hasLabel ? QUILLON_TR_NOOP("FormMatching", "label")
                          : QUILLON_TR_NOOP("FormMatching", "text before it"),
         .text = hasLabel ? signs.label : signs.around,
         .weight = 3},
        {.kind = QUILLON_TR_NOOP("FormMatching", "hint"), .text = signs.placeholder, .weight = 2},
        {.kind = QUILLON_TR_NOOP("FormMatching", "name"), .text = signs.name, .weight = 2},
        {.kind = QUILLON_TR_NOOP("FormMatching", "id"),
         .text = signs.id == signs.name ? QString() : signs.id,
         .weight = 1}};
    const bool isTypeTelling = field.type == u"email" || field.type == u"tel";
    voices.append({.kind = QUILLON_TR_NOOP("FormMatching", "type"),
                   .text = isTypeTelling ? field.type : QString(),
                   .weight = 1});
    for (Voice &voice : voices) {
        const QStringList heading = voice.kind == u"type" ? QStringList() : headingWords(signs.group);
        if (const auto *phrase = subjectOf(heading + form_signs::words(voice.text), heading.size())) {
            voice.value = phrase->value;
            voice.phrase = phrase->weight;
        }
    }
    const QString token = signs.autocomplete.section(u' ', -1).toLower();
    if (const QStringView value = form_signs::valueOfToken(token); !value.isEmpty())
        voices.append({.kind = QUILLON_TR_NOOP("FormMatching", "autocomplete"),
                       .text = token,
                       .weight = 3,
                       .value = value,
                       .phrase = 2});
    voices.removeIf([](const Voice &voice) { return voice.phrase == 0; });
    return voices;
}

struct Description
{
    QStringView value;
    int length;
};
constexpr std::array<Description, 5> descriptions = {{{u"pd45CharDescript", 45},
                                                      {u"pd80CharDescript", 80},
                                                      {u"pd250CharDescript", 250},
                                                      {u"pd450CharDescript", 450},
                                                      {u"pd2000CharDescript", 2000}}};

bool isLengthOf(QStringView value)
{
    return std::ranges::find(descriptions, value, &Description::value) != descriptions.end();
}

/// The description that fits @p field, whose signs name no length: the longest within its limit.
QStringView fittingDescription(const PageField &field)
{
    if (field.maxLength < 0)
        return field.type == u"textarea" || field.type == u"rich" ? u"pd2000CharDescript"
                                                                  : u"pd80CharDescript";
    QStringView fitting;
    for (const Description &each : descriptions) {
        if (each.length <= field.maxLength)
            fitting = each.value;
    }
    return fitting;
}

/// Gives voices that speak of any description the one that is meant. Whether that is more than a guess.
bool settleDescription(QList<Voice> &voices, const PageField &field)
{
    const auto speaksOfAny = [](const Voice &voice) { return voice.value == u"description"; };
    if (std::ranges::none_of(voices, speaksOfAny))
        return true;
    const auto exact =
        std::ranges::find_if(voices, [](const Voice &voice) { return isLengthOf(voice.value); });
    const bool isNamed = exact != voices.end();
    const QStringView meant = isNamed ? exact->value : fittingDescription(field);
    for (Voice &voice : voices) {
        if (speaksOfAny(voice))
            voice.value = meant;
    }
    return isNamed || field.maxLength > 0;
}

bool takesKind(const QString &type, Kind kind)
{
    static constexpr std::array<std::pair<QStringView, Kind>, 5> types = {{{u"email", Kind::Email},
                                                                           {u"url", Kind::Url},
                                                                           {u"tel", Kind::Phone},
                                                                           {u"number", Kind::Number},
                                                                           {u"date", Kind::Date}}};
    const auto own = std::ranges::find(types, QStringView(type), &std::pair<QStringView, Kind>::first);
    return own == types.end() || own->second == kind;
}

std::optional<QString> optionFor(const QStringList &options, const QString &text)
{
    const QString wanted = form_signs::words(text).join(u' ');
    const QString part = form_signs::words(text.section(u"::"_s, -1)).join(u' ');
    for (const QString &each : {wanted, part}) {
        const auto option = std::ranges::find_if(
            options, [&](const QString &offered) { return form_signs::words(offered).join(u' ') == each; });
        if (!each.isEmpty() && option != options.end())
            return *option;
    }
    return std::nullopt;
}

/// The votes for one value.
struct Votes
{
    QStringView value;
    int score = 0;
    QStringList why = {};
    bool isContradicted = false;
};

QList<Votes> counted(const QList<Voice> &voices)
{
    QList<Votes> all;
    for (const Voice &voice : voices) {
        auto own = std::ranges::find(all, voice.value, &Votes::value);
        if (own == all.end())
            own = all.insert(all.end(), Votes{.value = voice.value});
        own->score += voice.weight * voice.phrase;
        own->why.append(
            u"%1 “%2”"_s.arg(translated("FormMatching", voice.kind), plainLine(voice.text, longestQuote)));
    }
    for (Votes &votes : all)
        votes.isContradicted = std::ranges::any_of(voices, [&](const Voice &voice) {
            return voice.value != votes.value && voice.phrase >= leastContradiction;
        });
    std::ranges::stable_sort(all, std::ranges::greater(), &Votes::score);
    return all;
}

const TitleValue *valueNamed(const QList<TitleValue> &values, QStringView id)
{
    const auto value = std::ranges::find(values, id, &TitleValue::id);
    return value == values.end() ? nullptr : &*value;
}

bool isToBeLeft(const PageField &field)
{
    const QString all = QStringList{field.signs.label, field.signs.name, field.signs.id,
                                    field.signs.placeholder, field.signs.around}
                            .join(u" | "_s);
    const QString &tokens = field.signs.autocomplete;
    return form_signs::isForbidden(form_signs::words(all)) || tokens.contains(u"cc-") ||
           tokens.contains(u"password") || tokens.contains(u"one-time-code") || tokens.contains(u"username");
}

std::optional<Proposal> proposedBySigns(const PageField &field, const QList<TitleValue> &values)
{
    QList<Voice> voices = voicesOf(field);
    const bool isSettled = settleDescription(voices, field);
    const QList<Votes> votes = counted(voices);
    if (votes.isEmpty() || votes.first().score < leastScore)
        return std::nullopt;
    const Votes &best = votes.first();
    const TitleValue *value = valueNamed(values, best.value);
    const auto text = value ? fittingText(field, *value) : std::nullopt;
    if (!text)
        return std::nullopt;
    const bool isWhole = field.maxLength < 0 || text->size() <= field.maxLength;
    const QString cut = isWhole ? QString()
                                : QCoreApplication::translate("FormMatching", "; only %n characters fit",
                                                              nullptr, field.maxLength);
    const bool isRepeated =
        form_signs::isRepeated(form_signs::words(field.signs.label + u' ' + field.signs.around));
    return Proposal{.value = value->id,
                    .text = *text,
                    .why = best.why.join(u", "_s) + cut,
                    .score = best.score,
                    .isSure = best.score >= sureScore && !best.isContradicted && isSettled && isWhole &&
                              !isRepeated};
}

/// Of several fields that want one value only that for which most speaks may be sure of it.
void settleRivals(QList<Proposal> &proposals)
{
    QHash<QString, int> most, howMany;
    for (const Proposal &each : std::as_const(proposals))
        most[each.value] = std::max(most[each.value], each.score);
    for (const Proposal &each : std::as_const(proposals))
        howMany[each.value] += each.score == most[each.value] ? 1 : 0;
    for (Proposal &each : proposals)
        each.isSure = each.isSure &&
                      (each.isRemembered || (each.score == most[each.value] && howMany[each.value] == 1));
}

} // namespace

std::optional<QString> fittingText(const PageField &field, const TitleValue &value)
{
    if (value.text.isEmpty() || !takesKind(field.type, value.kind))
        return std::nullopt;
    if (field.type == u"select")
        return optionFor(field.options, value.shown());
    if (field.type == u"date")
        return value.text;
    if (field.type == u"number") {
        bool isNumber = false;
        value.text.trimmed().toDouble(&isNumber);
        return isNumber ? std::optional(value.text.trimmed()) : std::nullopt;
    }
    const bool hasLines = field.type == u"textarea" || field.type == u"rich";
    return hasLines ? value.shown() : value.shown().simplified();
}

QList<Proposal> propose(const QList<PageField> &fields, const QList<TitleValue> &values,
                        const QList<Remembered> &remembered)
{
    const QList<MemoryMatch> matches = matchedWith(fields, remembered);
    QList<Proposal> proposals;
    for (qsizetype place = 0; place < fields.size(); ++place) {
        const PageField &field = fields[place];
        if (isToBeLeft(field))
            continue;
        std::optional<Proposal> proposal;
        if (const MemoryMatch &match = matches[place]; match.memory >= 0) {
            const TitleValue *value = valueNamed(values, remembered[match.memory].value);
            if (const auto text = value ? fittingText(field, *value) : std::nullopt)
                proposal = Proposal{.value = value->id,
                                    .text = *text,
                                    .why = match.why,
                                    .score = match.score,
                                    .isRemembered = true,
                                    .isSure = match.isSure};
        } else {
            proposal = proposedBySigns(field, values);
        }
        if (!proposal)
            continue;
        proposal->field = place;
        proposals.append(*std::move(proposal));
    }
    settleRivals(proposals);
    return proposals;
}

} // namespace quillon::form_matching
