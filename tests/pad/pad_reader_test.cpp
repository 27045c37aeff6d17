#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/tables.h"

TEST(PadReaderTest, ReadsFilesOfEveryOrigin)
{
    for (const QStringList &row : table(u"files_read"_s)) {
        PadForm form;
        loadPADData(sample(row[0]), form);
        EXPECT_EQ(form.value(fieldNamed(row[1]).value()), row[2]) << row[0] << ' ' << row[1];
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
        EXPECT_EQ(form.checkBox(FieldId::expireCheckBox).isOn(), on) << value;
    }
}

TEST(PadReaderTest, ALongTextIsCutOutBetweenItsOwnTags)
{
    for (const QStringList &row : table(u"cut_out"_s)) {
        PadForm form;
        form.text(FieldId::eula).setText(u"of another title"_s);
        loadPADData("<r>" + row[0].toUtf8() + "</r>", form);
        EXPECT_EQ(form.value(FieldId::eula), row[1]) << row[0];
    }
}

TEST(PadReaderTest, WhatWasWrittenComesBackAsTyped)
{
    for (const QStringList &row : table(u"texts_kept"_s)) {
        for (const FieldId field : {FieldId::changeInformationView, FieldId::keywordsView, FieldId::eula}) {
            const bool isLine = row[0] == u"one";
            PadForm form;
            loadPADData(sample(u"filled_form.xml"_s), form);
            form.text(FieldId::companyName).setText(isLine ? row[1] : u"Reeve & Sons </r>"_s);
            form.text(FieldId::programName).setText(u"<Bell>"_s);
            form.text(field).setText(isLine ? QString() : row[1]);
            const QByteArray written = pad_writer::document(form);
            PadForm again;
            loadPADData(written, again);
            EXPECT_EQ(again.value(isLine ? FieldId::companyName : field), row.last());
            EXPECT_EQ(again.value(FieldId::programName), u"<Bell>"_s);
            EXPECT_TRUE(isLine || pad_writer::document(again) == written);
        }
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
            GTEST_SKIP() << "no PAD files in " << folder.path();
        for (const QString &name : files) {
            const QByteArray stored = contents(folder.filePath(name));
            PadForm form;
            loadPADData(stored, form);
            const QByteArray written = pad_writer::document(form);
            loadPADData(stored, form);
            EXPECT_EQ(pad_writer::document(form), written) << name;
            PadForm again;
            loadPADData(written, again);
            EXPECT_EQ(pad_writer::document(again), written) << name;
        }
    }
}
