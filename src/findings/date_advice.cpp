#include "findings/advice_rules.h"
#include "findings/field_phrases.h"
#include "pad/pad_form.h"
#include "platform/regex.h"
#include "validation/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::findings {

namespace {

int number(const Subject &subject, FieldId field)
{
    return numbers::integerAtStart(subject.form.value(field));
}

QDate releaseDate(const Subject &subject)
{
    return {number(subject, FieldId::releaseDateYear), number(subject, FieldId::releaseDateMonth),
            number(subject, FieldId::releaseDateDay)};
}

/// The names of which one tells that a line speaks of the author's own copyright.
QStringList ownNames(const Subject &subject)
{
    static constexpr qsizetype shortest = 4;
    static constexpr FieldId names[] = {FieldId::companyName, FieldId::authorLastName, FieldId::programName};
    QStringList longNames;
    for (const FieldId field : names) {
        const QString name = subject.form.value(field).simplified();
        if (name.size() >= shortest)
            longNames.append(name);
    }
    return longNames;
}

/// The newest year in the copyright lines of @p text that name one of @p names; 0 without one.
int newestCopyright(const QString &text, const QStringList &names)
{
    static const Regex copyright(u"(?i)(?:copyright|\\(c\\)|©)");
    static const Regex year(u"(?<![0-9])(?:19[89][0-9]|20[0-9]{2})(?![0-9])");
    int newest = 0;
    for (const QStringView line : QStringTokenizer(text, u'\n')) {
        const auto isIn = [line](const QString &name) { return line.contains(name, Qt::CaseInsensitive); };
        const auto begin = copyright.firstMatch(line);
        if (!begin || std::ranges::none_of(names, isIn))
            continue;
        // A licence may be one line, and tell of other things later.
        static constexpr qsizetype farthest = 80;
        QStringView rest = line.sliced(begin->captured().begin() - line.begin()).left(farthest);
        while (const auto match = year.firstMatch(rest)) {
            newest = std::max(newest, match->captured().toInt());
            rest = rest.sliced(match->captured().end() - rest.begin());
        }
    }
    return newest;
}

constexpr FieldId legalTexts[] = {FieldId::pd2000CharDescript, FieldId::distributionPermissions,
                                  FieldId::eula};

} // namespace

void adviseOnImpossibleDate(const Subject &subject, Adviser &adviser)
{
    const QDate date = releaseDate(subject);
    const bool isWhole = number(subject, FieldId::releaseDateDay) > 0 &&
                         number(subject, FieldId::releaseDateMonth) > 0 &&
                         number(subject, FieldId::releaseDateYear) > 0;
    if (isWhole && !date.isValid())
        adviser.add(FieldId::releaseDateDay,
                    u"There is no day %1 in month %2 of %3. Give a day of the calendar."_s.arg(
                        subject.form.value(FieldId::releaseDateDay).left(4),
                        subject.form.value(FieldId::releaseDateMonth).left(4),
                        subject.form.value(FieldId::releaseDateYear).left(4)));
}

void adviseOnFutureRelease(const Subject &subject, Adviser &adviser)
{
    const QDate date = releaseDate(subject);
    if (date.isValid() && date > subject.today.addDays(1)) // It may be tomorrow elsewhere.
        adviser.add(
            FieldId::releaseDateYear,
            u"The release date %1 is in the future. Give the day on which this version came out."_s.arg(
                date.toString(u"yyyy-MM-dd")));
}

void adviseOnOldRelease(const Subject &subject, Adviser &adviser)
{
    const QDate date = releaseDate(subject);
    if (!date.isValid())
        return;
    for (const FieldId field : legalTexts) {
        const int year = newestCopyright(subject.form.value(field), ownNames(subject));
        if (year <= date.year() + 1 || year > subject.today.year() + 1)
            continue;
        adviser.add(FieldId::releaseDateYear, u"The release date is of %1, but in the %2 the copyright is of "
                                              u"%3. Give the day on which this version "
                                              u"came out."_s.arg(date.year())
                                                  .arg(field_phrases::of(field))
                                                  .arg(year));
        return;
    }
}

void adviseOnOldCopyright(const Subject &subject, Adviser &adviser)
{
    const QDate date = releaseDate(subject);
    for (const FieldId field : legalTexts) {
        const int year = newestCopyright(subject.form.value(field), ownNames(subject));
        if (date.isValid() && year > 0 && year < date.year())
            adviser.add(
                field,
                u"The copyright in the %1 ends with %2, but this version is of %3. Bring the year up to "
                u"date."_s.arg(field_phrases::of(field))
                    .arg(year)
                    .arg(date.year()));
    }
}

} // namespace quillon::findings
