#include "findings/explanations.h"
#include "support/tables.h"
#include "support/valid_form.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QSet>

using namespace findings;
using enum FieldId;

/// Puts @p text into the field, whatever it is made of; "" empties it.
static void put(FieldId field, const QString &text, PadForm &form)
{
    const bool isUnasked = field == expireCount || field == expireBasePopUp;
    form.checkBox(expireCheckBox).setOn(isUnasked && text != u"unasked");
    if (field == expireBasePopUp)
        form.popUp(field).setIndex(text == u"unasked" ? 1 : 0);
    else
        form.setValue(field, text);
}

TEST(Explanations, ThereIsOneForEachMessageOfEachRule)
{
    for (const FieldRule &rule : field_rules::table) {
        const SummaryRule &summary = rule.summary;
        QSet<QString> missing;
        for (const QStringView message : {summary.tooShort, summary.tooLong, summary.unfit})
            missing += message.toString();
        missing.remove(QString());
        for (const QString &text : {u""_s, u"x"_s, of(6), of(121), of(20001), u"99"_s, u"unasked"_s}) {
            PadForm form;
            fillValidly(form);
            put(rule.field, text, form);
            ErrorPass errors;
            field_rules::checkEntries(form, errors);
            for (const Finding &finding : explained(errors.errors(), form)) {
                missing.remove(finding.recorded);
                EXPECT_NE(finding.id, u"recorded-earlier") << finding.recorded;
                EXPECT_EQ(findings::rule(finding.id).severity, Severity::Error);
                EXPECT_FALSE(finding.explanation.contains(u'{')) << finding.explanation;
                EXPECT_TRUE(finding.explanation.endsWith(u'.')) << finding.explanation;
            }
        }
        EXPECT_EQ(missing.values(), QStringList()) << size_t(rule.field);
    }
}

TEST(Explanations, GoByTheValue)
{
    for (const QStringList &row : table(u"explanations"_s)) {
        PadForm form;
        fillValidly(form);
        const FieldId field = fieldNamed(row[0]).value();
        put(field, row[1], form);
        const Finding finding = explained(field, u"recorded"_s, form);
        EXPECT_EQ((QStringList{finding.id.toString(), finding.explanation, finding.recorded}),
                  row.sliced(2) + QStringList(u"recorded"_s));
    }
}
