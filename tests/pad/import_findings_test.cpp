#include "pad/import_findings.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/files.h"
#include "support/growth.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

static QStringList findingsOf(const QString &elements)
{
    return importFindings(PadDocument(QString(u"<XML_DIZ_INFO>" + elements + u"</XML_DIZ_INFO>")));
}

TEST(ImportFindingsTest, TellWhatIsLostNoMoreAndNoLess)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"<Company_Info><Company_Name>A</Company_Name></Company_Info>"
         "<MASTER_PAD_VERSION_INFO><MASTER_PAD_EDITOR>other</MASTER_PAD_EDITOR></MASTER_PAD_VERSION_INFO>"_s,
         {}},
        {u"<Program_Type>Freemium</Program_Type><Expire_Based_On> Days</Expire_Based_On>"
         "<Program_OS_Support>Linux, Unix,Linux ,Solaris</Program_OS_Support>"
         "<Has_Expire_Info>No</Has_Expire_Info><EULA x='1'>text</EULA><Sales_Email>me at x</Sales_Email>"_s,
         {u"Sales_Email: the blanks in “me at x” will be removed."_s,
          u"Program_Type: “Freemium” is not in the list of PAD 3.10 and will be lost."_s,
          u"Expire_Based_On: “Days” has blanks around it, is not understood and will be lost."_s,
          u"Has_Expire_Info: “No” will become “Y”."_s,
          u"Program_OS_Support: “Unix” has blanks around it, is not understood and will be lost."_s,
          u"Program_OS_Support: “Solaris” is not in the list of PAD 3.10 and will be lost."_s,
          u"EULA: “text” cannot be read from a tag written like this and will be lost."_s}},
        {u"<File_Size_Bytes>1500000</File_Size_Bytes><File_Size_K>1464.8</File_Size_K>"
         "<File_Size_MB>9</File_Size_MB>"_s,
         {u"File_Size_MB: “9” will become “1.4”, reckoned from File_Size_Bytes."_s}},
        // The first element of a name is read wherever it stands.
        {u"<Robo><Company_Name>A</Company_Name><X>1</X><Y> </Y><Y>2</Y></Robo><Site><Z>3</Z></Site>"_s,
         {u"Robo is not part of PAD 3.10; its 2 values will be lost."_s,
          u"Site is not part of PAD 3.10; its value “3” will be lost."_s}},
        {u"<Program_Descriptions><German><Keywords>Taube</Keywords><EULA>x</EULA></"
         u"German><English><Keywords>dove"
         "</Keywords><Char_Desc_45>counts</Char_Desc_45></English><Dutch><Keywords>duif</"
         "Keywords><Char_Desc_45>"
         "telt</Char_Desc_45></Dutch></Program_Descriptions>"_s,
         {u"Dutch: its 2 values will be lost; of several languages the first is kept, which is German and English."_s,
          u"English: its value “dove” will be lost; of several languages the first is kept, which is German."_s}},
        {u"<Company_Name>A</Company_Name><Company_Name> A </Company_Name><Company_Name>B</Company_Name>"
         "<Company_Name>C</Company_Name>"_s,
         {u"Company_Name stands 4 times; “A” is kept, “B” and 1 more will be lost."_s}},
        // Malformed: every loss under its own name, whatever its tags are nested in.
        {u"<Company_Info><Company_Name>A</Company_Name>and "
         u"Sons</Company_Info><program_info><program_name>Bell"
         "</Program_Name><PROGRAM_VERSION>2.0</PROGRAM_VERSION><Address_1>Lane</Address_1></program_info>"_s,
         {u"PROGRAM_VERSION is not written Program_Version; its value “2.0” will be lost."_s,
          u"program_name is not written Program_Name; its value “Bell</Program_Name>” will be lost."_s,
          u"Company_Info holds text outside of its elements; its value “and Sons” will be lost."_s}},
    };
    for (const auto &[elements, expected] : cases)
        EXPECT_EQ(findingsOf(elements).join(u'\n').toStdString(), expected.join(u'\n').toStdString());

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
        EXPECT_LT(growth, tolerableGrowth) << piece.toStdString();
    }
}
