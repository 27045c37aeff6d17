#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

TEST(PadReaderTest, ReadsFilesOfEveryOrigin)
{
    // Each file with what its form holds: the values by their elements' names.
    const std::pair<QString, QString> cases[] = {
        {u"short_forms.xml"_s,
         u"Company_Name=Mill & Race|Address_1=|City_Town=|Country=Wales|Program_Version= 1.0.0 "
         u"|Program_Type=|"
         "Program_OS_Support=Linux,Mac OS X|Program_Language=English,Welsh|Program_Change_Info=grinds &amp; "
         "turns\n"
         "    &lt;twice&gt;, 1 &gt; 0|File_Size_K=0|File_Size_MB=0.0|Keywords=|Char_Desc_45=|"
         "Char_Desc_80=<![CDATA[<b>bold</b> & raw]]>"_s},
        {u"crlf_bom.xml"_s,
         u"Company_Name=Kontor für Zeit|Program_Change_Info=eins\r\nzwei|Has_Expire_Info=Y|EULA=one\r\ntwo\r\n"_s},
        {u"latin1.xml"_s, u"Company_Name=Café “Zoë”|Program_Name=Théière|Program_Cost_Other=5 €"_s},
        {u"languages.xml"_s, u"Program_Name=Dovecote|Keywords=Taube, Schlag|Char_Desc_45=Tauben zählen|"
                             "Char_Desc_80=Counts doves and feeds them"_s},
        {u"old_tool.xml"_s,
         u"Company_Name=Inkwell, Ltd.|Program_Version=v3 {Build}|Program_Release_Month=Feb|"
         "Program_Cost_Dollars=Free / 10|Program_OS_Support=Win98|File_Size_Bytes=266,752|"
         "File_Size_K=0"_s},
        {u"broken.xml"_s, u"Company_Name=Bell & Whistle|Address_1=1 < 2 Lane|Country=England|"
                          "Program_Name=Bell Ringer|Program_Release_Day=5|Program_Release_Month=3|"
                          "Program_Change_Info=AT&T, R & D <-- arrow <!-- remark|Char_Desc_45=Rings --> loud|"
                          "EULA=See <https://licence.example/text>.\fPage two & last."_s}};
    for (const auto &[file, expected] : cases) {
        PadForm form;
        loadPADData(sample(file), form);
        for (const QString &line : expected.split(u'|')) {
            const QString element = line.section(u'=', 0, 0);
            EXPECT_EQ(form.value(fieldNamed(element).value()), line.section(u'=', 1)) << line.toStdString();
        }
    }
}

TEST(PadReaderTest, AMissingElementLeavesItsControlButCheckListsBeginAnew)
{
    PadForm form;
    loadPADData(sample(u"filled_form.xml"_s), form);
    loadPADData("<XML_DIZ_INFO><Company_Name>Other</Company_Name><File_Size_Bytes></File_Size_Bytes>"
                "<EULA/></XML_DIZ_INFO>",
                form);
    EXPECT_EQ(form.value(FieldId::companyName), u"Other"_s);
    EXPECT_EQ(form.value(FieldId::programSizeKB), u"1465"_s);
    for (const FieldId emptied :
         {FieldId::sizeInBytes, FieldId::eula, FieldId::osTable, FieldId::languageTable})
        EXPECT_EQ(form.value(emptied), QString()) << int(emptied);
    for (const FieldId kept : {FieldId::companyCountry, FieldId::programTypePopUp, FieldId::keywordsView,
                               FieldId::changeInformationView, FieldId::primaryDownloadURL})
        EXPECT_FALSE(form.value(kept).isEmpty()) << int(kept);
    const QByteArray before = pad_writer::document(form);
    for (const QByteArray &nothing : {QByteArray(), QByteArray("\0\0", 2), QByteArray("no markup")})
        loadPADData(nothing, form);
    EXPECT_EQ(pad_writer::document(form), before);
}

TEST(PadReaderTest, TheCheckBoxIsOnForAnyWordButN)
{
    const std::pair<QByteArray, bool> cases[] = {{"Y", true},  {"y", true},  {"N", false},
                                                 {"n", false}, {"", false},  {" ", false},
                                                 {"0", true},  {"No", true}, {" N", true}};
    for (const auto &[value, on] : cases) {
        PadForm form;
        form.checkBox(FieldId::expireCheckBox).setOn(!on);
        loadPADData("<r><Has_Expire_Info>" + value + "</Has_Expire_Info></r>", form);
        EXPECT_EQ(form.checkBox(FieldId::expireCheckBox).isOn(), on) << value.toStdString();
    }
}

TEST(PadReaderTest, ALongTextIsCutOutBetweenItsOwnTags)
{
    // What stands in the file before and around the licence, and how the licence reads.
    const std::pair<QByteArray, QString> cases[] = {
        {"<EULA lang='en'>text</EULA>", u""_s},
        {"<EULA >text</EULA>", u""_s},
        {"<EULA>text</EULA >", u""_s},
        {"<Keywords>a <EULA> b</Keywords><EULA>text</EULA>", u"text"_s},
        {"<Keywords></EULA> a</Keywords><EULA>text</EULA>", u"text"_s},
        {"<Keywords>a <EULA> b</Keywords><Address_2/><EULA>1 &lt; 2</EULA>", u"1 &lt; 2"_s},
        {"<Keywords>a <EULA> b</Keywords><EULA>c <EULA> d <EULA> e</EULA>", u"c <EULA> d <EULA> e"_s},
        {"<EULA>a </r> b</EULA>", u"a </r> b"_s},
        {"<EULA>a </b> <EULA> b</EULA >c</EULA>", u"a </b> <EULA> b</EULA >c"_s},
        {"<Address_2/><EULA>a </r> b</EULA >c</EULA>", u"a &lt;/r&gt; b&lt;/EULA &gt;c"_s},
        {"<Keywords>a<br/>b</Keywords><EULA>Tom & Jerry, 1 > 0</EULA>", u"Tom & Jerry, 1 > 0"_s},
        {"<Address_2/><EULA>\n\t<b>1</b> <i>2</i></EULA>", u"\n\t<b>1</b> <i>2</i>"_s},
        {"<Address_2/><EULA>\n\t</EULA>", u""_s},
        {"<Address_2/><EULA><!-- none yet --></EULA>", u"<!-- none yet -->"_s},
        {"<Address_2 /><EULA>Tom & Jerry, 1 > 0</EULA>", u"Tom &amp; Jerry, 1 &gt; 0"_s}};
    for (const auto &[elements, expected] : cases) {
        PadForm form;
        form.text(FieldId::eula).setText(u"of another title"_s);
        loadPADData("<r>" + elements + "</r>", form);
        EXPECT_EQ(form.value(FieldId::eula), expected) << elements.toStdString();
    }
}

TEST(PadReaderTest, WhatWasWrittenComesBackAsTyped)
{
    const QStringList texts = {u"the export ends with </XML_DIZ_INFO>\n</Program_Info> </English> again"_s,
                               u"</b> <Keywords></Keywords > <EULA></EULA > tags"_s,
                               u"<Address_2/> & <Primary_Download_URL></Primary_Download_URL>"_s,
                               u"<Company_Name>x</Company_Name>\n\t\t<Address_1>"_s,
                               u"<!-- <![CDATA[ <? <!DOCTYPE <a x='"_s};
    for (const FieldId field : {FieldId::changeInformationView, FieldId::keywordsView, FieldId::eula}) {
        for (const QString &text : texts) {
            PadForm form;
            loadPADData(sample(u"filled_form.xml"_s), form);
            form.text(FieldId::companyName).setText(u"Reeve & Sons </r>"_s);
            form.text(field).setText(text);
            const QByteArray written = pad_writer::document(form);
            PadForm again;
            loadPADData(written, again);
            EXPECT_EQ(again.value(field), text);
            EXPECT_EQ(pad_writer::document(again), written);
        }
    }
    // In a single line, markup is read as such; what only stands in angle brackets is text.
    const std::pair<QString, QString> lines[] = {{u"Foo <bar> baz"_s, {}},
                                                 {u"<me@example.org>, a <b c='d'> & <E"_s, {}},
                                                 {u"<i>Foo</i> <br/>bar"_s, u"Foo bar"_s},
                                                 {u"Foo <english> bar"_s, u"Foo  bar"_s}};
    for (const auto &[typed, read] : lines) {
        PadForm form;
        form.text(FieldId::companyName).setText(typed);
        form.text(FieldId::programName).setText(u"<Bell>"_s);
        PadForm again;
        loadPADData(pad_writer::document(form), again);
        EXPECT_EQ(again.value(FieldId::companyName), read.isEmpty() ? typed : read);
        EXPECT_EQ(again.value(FieldId::programName), u"<Bell>"_s);
    }
    // A value's own end tag ends it, and nothing else.
    QByteArray written = pad_writer::skeleton();
    written.replace("<Keywords>", "<Keywords>a</Keywords> b").replace("<EULA>", "<EULA>text");
    PadForm form;
    loadPADData(written, form);
    EXPECT_EQ(form.value(FieldId::keywordsView), u"a"_s);
    EXPECT_EQ(form.value(FieldId::eula), u"text"_s);
}

TEST(PadReaderTest, ReadingTwiceOrWhatWasWrittenChangesNothing)
{
    const QString folders[] = {QStringLiteral(QUILLON_SAMPLES), QStringLiteral(QUILLON_REAL_PADS)};
    for (const QDir folder : folders) {
        const QStringList files = folder.entryList({u"*.xml"_s}, QDir::Files);
        if (files.isEmpty())
            GTEST_SKIP() << "no PAD files in " << folder.path().toStdString();
        for (const QString &name : files) {
            const QByteArray stored = contents(folder.filePath(name));
            PadForm form;
            loadPADData(stored, form);
            const QByteArray written = pad_writer::document(form);
            loadPADData(stored, form);
            EXPECT_EQ(pad_writer::document(form), written) << name.toStdString();
            PadForm again;
            loadPADData(written, again);
            EXPECT_EQ(pad_writer::document(again), written) << name.toStdString();
        }
    }
}
