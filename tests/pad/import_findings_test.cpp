#include "pad/import_findings.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/growth.h"
#include "support/testing.h"

static QStringList findingsOf(const QString &elements)
{
    return importFindings(PadDocument(QString(u"<XML_DIZ_INFO>" + elements + u"</XML_DIZ_INFO>")));
}

TEST(ImportFindingsTest, TellWhatIsLostNoMoreAndNoLess)
{
    QString elements;
    QStringList expected; // Below each line of elements stands, indented, what an import tells of them.
    for (const QString &line : words(QString::fromUtf8(sample(u"findings.txt"_s)) + u'#', u'\n')) {
        if (line.startsWith(u"    ")) {
            expected.append(line.sliced(4));
            continue;
        }
        EXPECT_EQ(findingsOf(std::exchange(elements, line)).join(u'\n'),
                  std::exchange(expected, {}).join(u'\n'));
    }

    PadForm form;
    loadPADData(sample(u"filled_form.xml"_s), form);
    form.text(FieldId::eula).setText(u"<Company_Name>x</Company_Name> <Robo>y</Robo>"_s);
    EXPECT_EQ(importFindings(PadDocument(pad_writer::document(form))), QStringList());
}

TEST(ImportFindingsTest, AreBoundedAndGrowWithTheFile)
{
    EXPECT_EQ(findingsOf(u"<Program_Language>"_s + u"a,"_s.repeated(102) + u"</Program_Language>").last(),
              u"…and 2 more."_s);
    for (const QString &piece :
         {u"a,"_s, u"<a>x</a>"_s, u"<EULA>x</EULA>"_s, u"<a>x"_s, u"<EULA>x"_s, u"x</b>"_s,
          u"<English><Keywords>k</Keywords></English>"_s, u"/>"_s, u"<Program_Language><program_name>x"_s}) {
        const double growth = growthOfEightfold(1'000, [&piece](qsizetype count) {
            EXPECT_LE(
                findingsOf(u"<Program_Descriptions><Program_Language>"_s + piece.repeated(count)).size(),
                mostFindings + 1);
        });
        EXPECT_LT(growth, tolerableGrowth) << piece;
    }
}
