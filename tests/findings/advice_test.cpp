#include "findings/advice.h"
#include "support/tables.h"
#include "support/valid_form.h"

TEST(Advice, IsGivenWhereItFitsAndNowhereElse)
{
    for (const QStringList &row : table(u"advice"_s)) {
        PadForm form;
        fillValidly(form);
        for (qsizetype at = 1; at + 1 < row.size(); at += 2)
            form.setValue(fieldNamed(row[at]).value(), row[at + 1]);
        QStringList told;
        for (const Finding &finding : findings::advice({.form = form, .today = QDate(2012, 6, 1)})) {
            EXPECT_NE(finding.severity, Severity::Error);
            EXPECT_FALSE(finding.explanation.contains(u'%')) << finding.explanation;
            told.append(finding.id + u' ' + padField(finding.field).control);
        }
        EXPECT_EQ(told.join(u", "), row[0]) << row.sliced(1).join(u' ');
    }
}
