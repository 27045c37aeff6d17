#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/growth.h"
#include "support/tables.h"
#include "support/valid_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

using enum FieldId;

static QString keyOf(FieldId field)
{
    return padField(field).control.toString();
}

static StringDictionary checked(PadForm &form)
{
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
    return errors.errors();
}

/// What the log says once @p text is in an otherwise valid form's @p field: nothing, or one message for it.
static QString messageFor(FieldId field, const QString &text)
{
    PadForm form;
    fillValidly(form);
    form.text(field).setText(text);
    const StringDictionary errors = checked(form);
    const Colour colour = errors.empty() ? Colour::Black : Colour::Red;
    EXPECT_EQ(form.control(field).hintColour(), colour) << keyOf(field);
    EXPECT_EQ(form.control(field).caption().colour(), colour) << keyOf(field);
    EXPECT_EQ(errors.count(keyOf(field)), errors.size()) << "an error of another field";
    return errors.empty() ? QString() : errors.begin()->second;
}

static FieldId named(const QString &control)
{
    return fieldNamed(control).value();
}

/// Red stretches as "start+length", with commas between.
static QString runs(const QList<ColourRun> &red)
{
    QStringList each;
    for (const ColourRun &run : red)
        each.append(u"%1+%2"_s.arg(run.start).arg(run.length));
    return each.join(u',');
}

TEST(FieldRules, JudgeTexts)
{
    for (const QStringList &row : table(u"field_judged"_s))
        EXPECT_EQ(messageFor(named(row[0]), row[1]), row[2]) << row[0] << ' ' << row[1].left(150);
    for (const QStringList &row : table(u"field_lengths"_s)) {
        const int least = row[1].toInt();
        const auto message = [&](qsizetype length) { return messageFor(named(row[0]), of(length)); };
        EXPECT_EQ(message(least) + message(row[2].toInt()), QString()) << row[0];
        EXPECT_EQ(message(row[2].toInt() + 1), row[3] + u" too long.");
        EXPECT_EQ(message(0), least == 0 || least == 7 ? QString() : row[3] + u" too short."_s) << row[0];
        EXPECT_TRUE(least < 2 || message(least - 1) == row[3] + u" too short.") << row[0];
    }
}

TEST(FieldRules, JudgeChoices)
{
    PadForm form;
    fillValidly(form);
    for (const FieldId field : {installSupportPopUp, programTypePopUp, programStatusPopUp})
        form.popUp(field).setIndex(0);
    form.popUp(categoryPopUp).setIndex(-1);
    form.checkList(languageTable).untickAll();
    form.checkList(osTable).untickAll();
    form.popUp(otherPricePopUp).setIndex(1);
    const StringDictionary expected = {
        {u"installSupportPopUp"_s, u"Install support should not be empty."_s},
        {u"programTypePopUp"_s, u"A program type should be selected."_s},
        {u"programStatusPopUp"_s, u"A program status should be selected."_s},
        {u"categoryPopUp"_s, u"A program category should be selected."_s},
        {u"languageTable"_s, u"No supported languages have been selected."_s},
        {u"osTable"_s, u"No supported operating systems have been selected."_s},
        {u"otherPrice"_s, u"You need to select a currency for the other price."_s}};
    EXPECT_EQ(checked(form), expected);
}

TEST(FieldRules, JudgeExpiry)
{
    for (const QStringList &row : table(u"expiry_judged"_s)) {
        PadForm form;
        fillValidly(form);
        form.checkBox(expireCheckBox).setOn(row[0] == u"Y");
        form.popUp(expireBasePopUp).setIndex(row[1].toInt());
        form.text(expireCount).setText(row[2]);
        StringDictionary errors = checked(form);
        EXPECT_EQ(form.control(expireCheckBox).caption().colour(),
                  errors.empty() ? Colour::Black : Colour::Red);
        EXPECT_EQ(errors[u"expireCount"_s], row[3]);
        EXPECT_EQ(errors[u"expireBasePopUp"_s], row[4]);
        EXPECT_EQ(errors.size(), 2U) << "an error of another field";
    }
}

TEST(FieldRules, ShowLengthsInTheHintsAndMarkWhatIsBeyond)
{
    for (const QStringList &row : table(u"field_hints"_s)) {
        PadForm form;
        form.text(named(row[0])).setText(row[1]);
        form.control(named(row[0])).setHint(u"before"_s);
        checked(form);
        EXPECT_EQ(form.control(named(row[0])).hint(), row[2]);
        EXPECT_EQ(runs(form.text(named(row[0])).redRuns()), row[3]) << row[0];
    }
}

TEST(FieldRules, WhileTyping)
{
    for (const QStringList &row : table(u"field_typed"_s)) {
        PadForm form;
        ErrorPass errors;
        TextControl &field = form.text(named(row[1]));
        field.setText(row[2]);
        field.setEditing(true);
        field.setHint(u"before"_s);
        field_rules::textChanged(row[0].toInt(), form, errors);
        EXPECT_EQ((QStringList{field.text(), field.hint(), runs(field.redRuns())}), row.sliced(3)) << row[0];
        EXPECT_EQ(errors.errors().contains(u"otherPrice"_s), row[0] == u"27");
    }
}

TEST(FieldRules, PutDatesInOrderOnLeaving)
{
    for (const QStringList &row : table(u"field_left"_s)) {
        const FieldId field = named(row[0]);
        PadForm form;
        ErrorPass errors;
        errors.setHasError(u"releaseDateDay"_s, u"before"_s);
        form.text(field).setText(row[1]);
        EXPECT_EQ(field_rules::editingEnded(field_rules::of(field).tag, form, errors).toString(), row[3]);
        EXPECT_EQ(form.text(field).text(), row[2]) << row[1];
        EXPECT_EQ(errors.errors().empty(), field == releaseDateDay);
    }
}

TEST(FieldRules, MissAReleaseDateOrVersionOnLeaving)
{
    PadForm form;
    ErrorPass errors;
    const auto leave = [&](FieldId field, const QString &text) {
        form.text(field).setText(text);
        field_rules::editingEnded(field_rules::of(field).tag, form, errors);
        return form.control(field).hintColour();
    };
    for (const FieldId part : {releaseDateDay, releaseDateMonth, releaseDateYear})
        EXPECT_EQ(leave(part, {}), Colour::Red);
    const StringDictionary expected = {{u"releaseDateDay"_s, u"The release day should not be empty."_s},
                                       {u"releaseDateMonth"_s, u"The release month should not be empty."_s},
                                       {u"releaseDateYear"_s, u"The release year should not be empty."_s}};
    EXPECT_EQ(errors.errors(), expected);
    for (const FieldId part : {releaseDateYear, releaseDateDay, releaseDateMonth}) {
        EXPECT_EQ(form.control(part).caption().colour(), Colour::Red);
        EXPECT_EQ(leave(part, u"2009"_s), Colour::Black);
    }
    EXPECT_EQ(form.control(releaseDateDay).caption().colour(), Colour::Black);
    EXPECT_TRUE(errors.errors().empty());
    EXPECT_EQ(leave(programVersion, u" \n"_s), Colour::Red);
    EXPECT_EQ(leave(programVersion, u"1"_s), Colour::Black);
}

TEST(FieldRules, AReleaseDateOutOfRangeIsRedButKeepsItsEntry)
{
    const std::pair<FieldId, QString> cases[] = {{releaseDateDay, u"0"_s},
                                                 {releaseDateDay, u"32"_s},
                                                 {releaseDateMonth, u"May"_s},
                                                 {releaseDateYear, u"1900"_s},
                                                 {releaseDateYear, u"2199"_s}};
    for (const auto &[field, text] : cases) {
        PadForm form;
        fillValidly(form);
        form.text(field).setText(text);
        EXPECT_TRUE(checked(form).empty());
        EXPECT_EQ(form.control(field).hintColour(), Colour::Red);
        EXPECT_EQ(form.control(releaseDateDay).caption().colour(), Colour::Red);
        ErrorPass errors;
        errors.setHasError(keyOf(field), u"before"_s);
        field_rules::checkEntries(form, errors);
        EXPECT_EQ(errors.errors().size(), 1U);
    }
}

TEST(FieldRules, TheSizeFollowsTheBytes)
{
    PadForm form;
    ErrorPass errors;
    for (const QString &bytes : {u"1536000"_s, QString()}) {
        form.text(sizeInBytes).setText(bytes);
        field_rules::textChanged(29, form, errors);
        EXPECT_EQ(form.text(programSizeKB).text(), u"1500 KB"_s);
        EXPECT_EQ(form.text(programSizeMB).text(), u"1.5 MB"_s);
    }
    checked(form);
    EXPECT_EQ(form.text(programSizeKB).text(), u"0 KB"_s);
    EXPECT_EQ(form.text(programSizeMB).text(), u"0.0 MB"_s);
}

TEST(FieldRules, JudgingAgainChangesNothing)
{
    PadForm form;
    form.text(eula).setText(of(20001));
    form.text(authorEmail).setText(u"a b"_s);
    const StringDictionary errors = checked(form);
    int changes = 0;
    for (const PadField &field : padFields) {
        const Control &control = form.control(field.id);
        QObject::connect(&control, &Control::changed, &form, [&changes] { ++changes; });
        QObject::connect(&control.caption(), &Caption::changed, &form, [&changes] { ++changes; });
    }
    EXPECT_EQ(checked(form), errors);
    EXPECT_EQ(changes, 0);
}

TEST(FieldRules, TheWorkOfTheFullCheckGrowsWithTheTexts)
{
    const double growth = growthOfEightfold(20'000, [](qsizetype count) {
        PadForm form;
        for (const PadField &field : padFields) {
            if (field.kind == FieldKind::Text || field.kind == FieldKind::MultiLine)
                form.text(field.id).setText(u"a@b."_s.repeated(count));
        }
        EXPECT_FALSE(checked(form).empty());
    });
    EXPECT_LT(growth, tolerableGrowth);
}
