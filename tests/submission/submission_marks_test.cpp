#include "store/summary_file.h"
#include "submission/submission_marks.h"
#include "support/tables.h"

namespace {

/// A summary around the text of the two lists' elements.
QString summaryWith(const QString &version, const QString &elements)
{
    return u"<?xml version=\"1.0\"  encoding='UTF-8' ?>\r\n<QUILLON_SOFTWARE_INFORMATION>\n"
           "<OTS_VERSION>"_s +
           version + u"</OTS_VERSION> <!-- kept -->\n\t<SUBMISSION_INFORMATION >\n\t\t"_s + elements +
           u"\n\t</SUBMISSION_INFORMATION>\n</QUILLON_SOFTWARE_INFORMATION>\n"_s;
}

QString closed(const QString &sites, const QString &versions)
{
    return u"<QN_SITES>"_s + sites + u"</QN_SITES>\n\t\t<QN_VERSION>"_s + versions + u"</QN_VERSION>"_s;
}

Summary listsIn(const QString &text)
{
    return summary_file::parse(text.toUtf8());
}

} // namespace

TEST(SubmissionMarks, EditTheTwoListsAndNothingElse)
{
    const auto text = [](const QStringList &of) { return summaryWith(of[0], closed(of[1], of[2])); };
    for (const QStringList &row : table(u"marks_edited"_s)) {
        const auto edit = row[0] == u"mark" ? submission_marks::withMark : submission_marks::withoutMark;
        EXPECT_EQ(edit(text(row.sliced(2, 3)), row[1]), text(row.sliced(5)));
    }
}

TEST(SubmissionMarks, MendListsThatAreNotWhole)
{
    for (const QStringList &row : table(u"marks_mended"_s)) {
        const QString before = summaryWith(u"9"_s, row[1]);
        EXPECT_EQ(submission_marks::withMark(before, u"N"_s), summaryWith(u"9"_s, row[2])) << row[0];
        EXPECT_EQ(submission_marks::withoutMark(before, u"A"_s), summaryWith(u"9"_s, row[3])) << row[0];
    }
}

TEST(SubmissionMarks, OfAnyNameLeaveTheOtherElementsAlone)
{
    const QString names[] = {u"A & B"_s,   u"a < b"_s,        u"$1"_s,
                             u"C++ (.*"_s, u"<QN_VERSION>"_s, u"</b>"_s,
                             u"&amp;"_s,   u"</QN_SITES>"_s,  u"<OTS_VERSION>7</OTS_VERSION>"_s,
                             u"ÄÖ 日本"_s, u"]]>"_s,          u"<!--"_s,
                             u"\\"_s};
    for (const QString &name : names) {
        const QString before = summaryWith(u"9"_s, closed(u"A"_s, u"1"_s));
        const QString marked = submission_marks::withMark(before, name);
        EXPECT_EQ(marked, summaryWith(u"9"_s, closed(u"A,"_s + name, u"1,9"_s)));
        const Summary once = listsIn(marked);
        // Whatever becomes of the odd name, a further mark finds both lists and keeps them in step.
        const Summary twice = listsIn(submission_marks::withMark(marked, u"Next"_s));
        EXPECT_TRUE(once.version == u"9" && once.versions.value_or(QString()).startsWith(u"1,9")) << name;
        EXPECT_TRUE(twice.version == u"9" && twice.versions.value_or(QString()).startsWith(u"1,9,9")) << name;
        EXPECT_TRUE(twice.sites.value_or(QString()).startsWith(u"A,")) << name;
    }
    const Summary again =
        listsIn(submission_marks::withMark(summaryWith(u"9"_s, closed(u"A &amp; B"_s, u"1"_s)), u"A & B"_s));
    EXPECT_TRUE(again.version == u"9" && again.sites == u"A & B" && again.versions == u"9,")
        << "an escaped name is the same site";
}
