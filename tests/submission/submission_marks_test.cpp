#include "store/summary_file.h"
#include "submission/submission_marks.h"
#include "support/testing.h"

namespace {

using Edit = QString (*)(const QString &, const QString &);

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
    const Edit mark = submission_marks::withMark;
    const Edit remove = submission_marks::withoutMark;
    // The edit, the site, and the lists before and after: version|sites|versions.
    const std::tuple<Edit, QString, QString, QString> cases[] = {
        // First and further marks, with stray commas cleaned up.
        {mark, u"A"_s, u"1.0||"_s, u"1.0|A|1.0"_s},
        {mark, u"A"_s, u"||"_s, u"|A|Unknown"_s},
        {mark, u"B"_s, u"2|A|1"_s, u"2|A,B|1,2"_s},
        {mark, u"B"_s, u"2|A,,|1,,,"_s, u"2|A,B|1,2"_s},
        {mark, u"B"_s, u"2|,A,,C|,1,,3"_s, u"2|A,C,B|1,3,2"_s},
        {mark, u"a"_s, u"2|A|1"_s, u"2|A,a|1,2"_s},
        {mark, u"X,Y"_s, u"2|A|1"_s, u"2|A,X,Y|1,2"_s},
        // Marked again: the version alone, with a comma at the end; an empty one shifts the later ones.
        {mark, u"B"_s, u"3|A,B,C|1,2,1"_s, u"3|A,B,C|1,3,1,"_s},
        {mark, u"B"_s, u"3|A,B|1,2,"_s, u"3|A,B|1,3,"_s},
        {mark, u"B"_s, u"3|B,B|1,2"_s, u"3|B,B|3,3,"_s},
        {mark, u"B"_s, u"|A,B,C|1,2,3"_s, u"|A,B,C|1,3,"_s},
        {mark, u"B"_s, u"3|A,B|1"_s, u"3|A,B|1"_s},
        // Removed: the last entry that holds the name.
        {remove, u"A"_s, u"1|A|1"_s, u"1||"_s},
        {remove, u"B"_s, u"1|A,B,C|1,2,3,"_s, u"1|A,C|1,3"_s},
        {remove, u"Softs"_s, u"1|Softs,Download Softs|1,2"_s, u"1|Softs|1"_s},
        {remove, u"softs"_s, u"1|A,SOFTSIA|1,2"_s, u"1|A|1"_s},
        {remove, u"A"_s, u"1|A,B|1"_s, u"1|B|"_s},
        {remove, u"B"_s, u",1,,2,|A,B|1,2"_s, u"1,2|A|1"_s},
        // Nothing to remove: also a name found in the tag alone, or across two entries.
        {remove, u"Z"_s, u",1|A,B,|1,2,"_s, u",1|A,B,|1,2,"_s},
        {remove, u"sites"_s, u"1|A,B|1,2"_s, u"1|A,B|1,2"_s},
        {remove, u"A,B"_s, u",1|A,B,|1,2,"_s, u",1|A,B,|1,2,"_s},
        {remove, u""_s, u"1|A,B|1,2"_s, u"1|A,B|1,2"_s}};
    const auto text = [](const QString &lists) {
        return summaryWith(lists.section(u'|', 0, 0),
                           closed(lists.section(u'|', 1, 1), lists.section(u'|', 2)));
    };
    for (const auto &[edit, site, before, after] : cases)
        EXPECT_EQ(edit(text(before), site), text(after));
}

TEST(SubmissionMarks, MendListsThatAreNotWhole)
{
    const std::tuple<const char *, QString, QString, QString> cases[] = {
        {"as pruning leaves it", u"<QN_SITES>A,B</QN_SITES>\n\t\t<QN_VERSION>1,2<QN_VERSION>"_s,
         closed(u"A,B,N"_s, u"1,2,9"_s), closed(u"B"_s, u"2"_s)},
        {"as pruning leaves an empty one", u"<QN_SITES>\n\t\t<QN_VERSION>"_s, closed(u"N"_s, u"9"_s),
         u"<QN_SITES>\n\t\t<QN_VERSION>"_s},
        {"self-closed", u"<QN_SITES/>\n\t\t<QN_VERSION />"_s, closed(u"N"_s, u"9"_s),
         u"<QN_SITES/>\n\t\t<QN_VERSION />"_s},
        {"with an attribute", u"<QN_SITES a='>'>A</QN_SITES>\n\t\t<QN_VERSION>1</QN_VERSION>"_s,
         closed(u"A,N"_s, u"1,9"_s), closed(u""_s, u""_s)},
        {"no sites", u"<QN_VERSION>1</QN_VERSION>"_s, u"<QN_VERSION>1,9</QN_VERSION>"_s,
         u"<QN_VERSION>1</QN_VERSION>"_s},
        {"no versions", u"<QN_SITES>A,B</QN_SITES>"_s, u"<QN_SITES>A,B,N</QN_SITES>"_s,
         u"<QN_SITES>B</QN_SITES>"_s},
        {"unclosed before a closed one", u"<QN_SITES>A,B\n\t\t<QN_VERSION>1,2</QN_VERSION>"_s,
         closed(u"A,B,N"_s, u"1,2,9"_s), closed(u"B"_s, u"2"_s)},
        {"in a comment first", u"<!--<QN_SITES>x</QN_SITES>-->"_s + closed(u"A,B"_s, u"1,2"_s),
         u"<!--<QN_SITES>x</QN_SITES>-->"_s + closed(u"A,B,N"_s, u"1,2,9"_s),
         u"<!--<QN_SITES>x</QN_SITES>-->"_s + closed(u"B"_s, u"2"_s)},
        {"nothing at all", u""_s, u""_s, u""_s},
    };
    for (const auto &[why, elements, marked, removed] : cases) {
        const QString before = summaryWith(u"9"_s, elements);
        EXPECT_EQ(submission_marks::withMark(before, u"N"_s), summaryWith(u"9"_s, marked)) << why;
        EXPECT_EQ(submission_marks::withoutMark(before, u"A"_s), summaryWith(u"9"_s, removed)) << why;
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
        EXPECT_TRUE(once.version == u"9" && once.versions.value_or(QString()).startsWith(u"1,9"))
            << name.toStdString();
        EXPECT_TRUE(twice.version == u"9" && twice.versions.value_or(QString()).startsWith(u"1,9,9"))
            << name.toStdString();
        EXPECT_TRUE(twice.sites.value_or(QString()).startsWith(u"A,")) << name.toStdString();
    }
    const Summary again =
        listsIn(submission_marks::withMark(summaryWith(u"9"_s, closed(u"A &amp; B"_s, u"1"_s)), u"A & B"_s));
    EXPECT_TRUE(again.version == u"9" && again.sites == u"A & B" && again.versions == u"9,")
        << "an escaped name is the same site";
}
