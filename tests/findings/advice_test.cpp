#include "findings/advice.h"
#include "pad/pad_document.h"
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
            EXPECT_FALSE(finding.explanation.contains(u'%') || finding.explanation.contains(u"  "))
                << finding.explanation;
            told.append(finding.id + u' ' + padField(finding.field).control);
        }
        EXPECT_EQ(told.join(u", "), row[0]) << row.sliced(1).join(u' ');
    }
}

TEST(Advice, SizesOfAFileAreComparedWhereTheyAreSizes)
{
    PadForm form;
    fillValidly(form);
    const auto told = [&form](const QString &bytes, const QString &kilobytes) {
        const PadDocument document(
            u"<File_Size_Bytes>%1</File_Size_Bytes><File_Size_K>%2</File_Size_K>"_s.arg(bytes, kilobytes));
        QStringList lines;
        for (const Finding &finding : findings::advice({.form = form, .document = &document})) {
            if (finding.id == u"size-mismatch")
                lines.append(finding.explanation.section(u'.', 0, 0));
        }
        return lines.join(u'|');
    };
    EXPECT_EQ(told(u"1024000"_s, u"900 KB"_s), u"The size is 1024000 bytes, but 900 kilobytes");
    EXPECT_EQ(told(u"1024000"_s, u"1000 KB"_s), QString());
    for (const QString &beyond : {u"1e300"_s, u"nan"_s, u"-inf"_s})
        EXPECT_EQ(told(beyond, u"1"_s) + told(u"1"_s, beyond), QString()) << beyond;
}
