#include "pad/file_size.h"
#include "pad/pad_form.h"
#include "pad/pad_writer.h"
#include "platform/application_info.h"
#include "support/tables.h"

/// The bytes of tests/samples/@p name for the running version.
static QByteArray expected(const QString &name)
{
    return sample(name).replace("@VERSION@", application_info::version.toUtf8());
}

/// Puts something into each control: its own name where it takes any text.
static void fillIn(PadForm &form)
{
    for (const PadField &field : padFields) {
        if (field.kind == FieldKind::Text || field.kind == FieldKind::MultiLine)
            form.text(field.id).setText(field.control.toString());
    }
    const std::pair<FieldId, QString> texts[] = {
        {FieldId::companyName, u"Harbour & Sons"_s},
        {FieldId::companyAddress2, u" Unit 4 "_s},
        {FieldId::companyCityTown, u"Århus"_s},
        {FieldId::sizeInBytes, u"1500000"_s},
        {FieldId::changeInformationView, u"- tides of < 1 m\n- the moon, \"&amp;\" more\n\n- mended"_s},
        {FieldId::pd2000CharDescript, u"Tides 潮 for every harbour 😀\n\tindented\n"_s},
    };
    for (const auto &[field, value] : texts)
        form.text(field).setText(value);
    file_size::show(form);
    const std::pair<FieldId, QString> choices[] = {{FieldId::otherPricePopUp, u"DKK"_s},
                                                   {FieldId::programTypePopUp, u"Shareware"_s},
                                                   {FieldId::programStatusPopUp, u"New Release"_s},
                                                   {FieldId::installSupportPopUp, u"Install Only"_s},
                                                   {FieldId::expireBasePopUp, u"Days"_s},
                                                   {FieldId::categoryPopUp, u"Education::Science"_s}};
    for (const auto &[field, value] : choices)
        form.popUp(field).setTitle(value);
    form.checkBox(FieldId::expireCheckBox).setOn(true);
    // Ticked out of order: the lists' own order counts.
    for (const QString &name : {u"Other"_s, u"Unix"_s, u"Mac OS X"_s, u"English"_s, u"Danish"_s}) {
        for (const PadField &field : fields::checkLists()) {
            CheckListControl &list = form.checkList(field.id);
            list.setTicked(list.entries().indexOf(name), true);
        }
    }
}

TEST(PadWriterTest, WritesTheWholeLayoutByteForByte)
{
    EXPECT_EQ(pad_writer::skeleton(), expected(u"new_title.xml"_s));

    PadForm form;
    QByteArray empty = expected(u"new_title.xml"_s);
    empty.replace(">0 KB<", ">0<").replace(">0 MB<", ">0.0<");
    EXPECT_EQ(pad_writer::document(form), empty);
    // What is not in a list is not set, and is written as nothing.
    form.popUp(FieldId::programTypePopUp).setTitle(u"Open Source"_s);
    EXPECT_EQ(pad_writer::document(form), empty);

    fillIn(form);
    EXPECT_EQ(pad_writer::document(form), expected(u"filled_form.xml"_s));
}

TEST(PadWriterTest, ExportEscapesAmpersandsBetweenBlanksOnly)
{
    for (const QStringList &row : table(u"exported"_s))
        EXPECT_EQ(pad_writer::exported(row[0].toUtf8()), row[1].toUtf8());
    EXPECT_EQ(pad_writer::exported("\n<?xml encoding='ISO-8859-1'?><r>Zo\xEB & co</r>"),
              "\n<?xml encoding='UTF-8'?><r>Zoë &amp; co</r>");
    EXPECT_EQ(pad_writer::exported("<r>Zo\xEB & encoding='x'</r>"), "<r>Zoë &amp; encoding='x'</r>");
}
