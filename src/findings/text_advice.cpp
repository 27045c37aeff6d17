#include "findings/advice_rules.h"
#include "findings/field_phrases.h"
#include "pad/file_size.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "platform/plain_text.h"
#include "platform/xml_escaping.h"
#include "validation/field_rule_table.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <optional>
#include <pugixml.hpp>

using namespace Qt::StringLiterals;

namespace quillon::findings {

namespace {

/// The texts of strangers in a sentence.
constexpr qsizetype longestQuote = 40;

std::span<const PadField> descriptions()
{
    return fields::between(FieldId::pd45CharDescript, FieldId::pd2000CharDescript);
}

/// The size that @p field of the file has; none without a number, or with one that no size can be.
std::optional<double> sizeIn(const Subject &subject, FieldId field)
{
    static constexpr double largest = 1e15;
    const QString text = file_size::withoutUnit(subject.document->value(padField(field)).value_or(QString()));
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::abs(number) < largest ? std::optional(number) : std::nullopt;
}

/// Whether @p size is @p bytes in that unit, of 1024 or of 1000 to the next smaller one, rounded anyhow.
bool fits(double size, double bytes, double unit, double decimalUnit)
{
    static constexpr double rounding = 1.0;
    const bool isWhole = size == double(qint64(size));
    const double slack = isWhole ? rounding : rounding / 8;
    return size > bytes / unit - slack && size < bytes / decimalUnit + slack;
}

/// Words that only their language uses, in nearly every sentence.
struct Language
{
    QStringView name;
    QStringView words;
};

constexpr QStringView english = u" the and of is for with you your it this from that are can to in ";
constexpr Language others[] = {
    {u"German", u" und der das ist mit für sie nicht eine ein werden auf von "},
    {u"French", u" et les des est pour avec vous une dans votre sur aux "},
    {u"Spanish", u" y los las es para con una por su el del puede "},
    {u"Italian", u" e gli è per con una che del della di puoi sono "},
    {u"Portuguese", u" e os é para com uma que não do da você pode "},
    {u"Dutch", u" en het een van voor met niet zijn uw kunt op "},
    {u"Polish", u" i jest dla z nie się to na do oraz "},
};

qsizetype countOf(const QStringList &words, QStringView vocabulary)
{
    return std::ranges::count_if(words, [vocabulary](const QString &word) {
        return vocabulary.contains(QString(u' ' + word + u' '));
    });
}

/// The language that @p text is in for certain, when it is not English; empty otherwise.
QString foreignLanguage(const QString &text)
{
    const auto isLetter = [](QChar unit) { return unit.isLetter(); };
    const auto isForeign = [](QChar unit) { return unit.isLetter() && unit.script() > QChar::Script_Latin; };
    const auto letters = std::ranges::count_if(text, isLetter);
    if (letters > 0 && std::ranges::count_if(text, isForeign) * 2 > letters)
        return u"another script"_s;
    const QStringList words = text.toLower().simplified().split(u' ');
    static constexpr qsizetype fewest = 3;
    for (const Language &language : others) {
        const qsizetype count = countOf(words, language.words);
        if (count >= fewest && count > 3 * countOf(words, english))
            return language.name.toString();
    }
    return {};
}

/// Whether the field's element is that of another language: of several, the form shows the first.
bool isOfAnotherLanguage(const Subject &subject, const PadField &field)
{
    if (!subject.document)
        return false;
    const QByteArrayView parent(subject.document->xml().firstNode(field.element).parent().name());
    return !parent.isEmpty() && parent != "English";
}

} // namespace

void adviseOnSizes(const Subject &subject, Adviser &adviser)
{
    struct Unit
    {
        FieldId field;
        QStringView name;
        double size;
        double decimal;
    };
    static constexpr Unit units[] = {{FieldId::programSizeKB, u"kilobytes", 1024.0, 1000.0},
                                     {FieldId::programSizeMB, u"megabytes", 1024.0 * 1024.0, 1e6}};
    const auto bytes = subject.document ? sizeIn(subject, FieldId::sizeInBytes) : std::nullopt;
    if (!bytes)
        return;
    for (const Unit &unit : units) {
        const auto size = sizeIn(subject, unit.field);
        if (size && !fits(*size, *bytes, unit.size, unit.decimal))
            adviser.add(unit.field,
                        u"The size is %1 bytes, but %2 %3. Give the sizes of one and the same file."_s.arg(
                            QString::number(qint64(*bytes)), QString::number(*size), unit.name));
    }
}

void adviseOnSameDescriptions(const Subject &subject, Adviser &adviser)
{
    for (const PadField &longer : descriptions()) {
        const QString text = subject.form.value(longer.id).simplified();
        for (const PadField &shorter : descriptions()) {
            if (shorter.id == longer.id)
                break;
            if (text.isEmpty() || subject.form.value(shorter.id).simplified() != text)
                continue;
            adviser.add(
                longer.id,
                u"The %1 is the same as the %2. Sites that show it have room for more: tell more."_s.arg(
                    field_phrases::of(longer.id), field_phrases::of(shorter.id)));
            break;
        }
    }
}

void adviseOnCutTexts(const Subject &subject, Adviser &adviser)
{
    static constexpr qsizetype nearLimit = 3;
    for (const PadField &shorter : descriptions()) {
        const QString text = subject.form.value(shorter.id).simplified();
        const int limit = field_rules::of(shorter.id).summary.bounds.max;
        if (text.size() < limit - nearLimit || text.isEmpty() || !text.back().isLetterOrNumber())
            continue;
        const auto goesOn = [&](const PadField &longer) {
            const QString whole = subject.form.value(longer.id).simplified();
            return longer.id > shorter.id && whole.size() > text.size() && whole.startsWith(text) &&
                   whole[text.size()].isLetterOrNumber();
        };
        if (std::ranges::any_of(descriptions(), goesOn))
            adviser.add(shorter.id,
                        u"The %1 ends in the middle of a word (“…%2”). End it with a whole one."_s.arg(
                            field_phrases::of(shorter.id), plainLine(text.right(12), 12)));
    }
}

void adviseOnKeywords(const Subject &subject, Adviser &adviser)
{
    QHash<QString, int> times;
    QStringList twice;
    for (const QString &each : subject.form.value(FieldId::keywordsView).split(u',')) {
        const QString keyword = each.simplified().toLower();
        if (!keyword.isEmpty() && ++times[keyword] == 2)
            twice.append(keyword);
    }
    if (!twice.isEmpty())
        adviser.add(FieldId::keywordsView,
                    u"Some keywords stand there more than once: “%1”. Take out what is repeated, and use the "
                    u"room for "
                    u"others."_s.arg(plainLine(twice.join(u"”, “"), longestQuote * 2)));
}

void adviseOnLanguage(const Subject &subject, Adviser &adviser)
{
    for (const PadField &field : descriptions()) {
        const QString language = foreignLanguage(subject.form.value(field.id));
        if (!language.isEmpty() && !isOfAnotherLanguage(subject, field))
            adviser.add(
                field.id,
                u"The %1 stands among the English texts, but looks like %2. Give an English one."_s.arg(
                    field_phrases::of(field.id), language));
    }
}

void adviseOnXml(const Subject &subject, Adviser &adviser)
{
    for (const PadField &field : padFields) {
        const bool isFile = subject.document != nullptr;
        QString content = isFile ? subject.document->sourceOf(field) : subject.form.value(field.id);
        if (!isFile)
            content.replace(u" & "_s, u" &amp; "_s); // As an export does it.
        if (isWellFormedContent(content))
            continue;
        adviser.add(
            field.id,
            (isFile ? u"The %1 holds what no XML file may hold, such as a bare “&” or “<”: write “&amp;” "
                      u"or “&lt;” for it, or many sites cannot read the file."_s
                    : u"The %1 holds a “&” or “<” that would keep many sites from reading the file. Put a "
                      u"blank on each side of an “&”, and take out a “<”."_s)
                .arg(field_phrases::of(field.id)));
    }
}

} // namespace quillon::findings
