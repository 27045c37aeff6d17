#include "overview/merged_export.h"
#include "pad/merged_document.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/testing.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QStringEncoder>
#include <QXmlStreamReader>

/// Everything that a reader of XML sees of @p xml; the texts of @p element, and what is in them, left out.
static std::optional<QStringList> seen(const QByteArray &xml, QStringView element)
{
    QStringList all;
    QXmlStreamReader reader(xml);
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        depth += reader.name() == element ? (reader.isStartElement() ? 1 : -1) : 0;
        if (depth > 0)
            continue;
        all += reader.tokenString() + u' ' + reader.name() + u' ' + reader.text();
        for (const QXmlStreamAttribute &each : reader.attributes())
            all += each.qualifiedName() + u'=' + each.value();
    }
    return reader.hasError() ? std::nullopt : std::optional(all);
}

TEST(MergedExport, LaysOnlyWhatTheAuthorChangedOverRealFiles)
{
    const QString folder = QStringLiteral(QUILLON_REAL_PADS "/");
    const QStringList files = names(folder).filter(u".xml"_s);
    if (files.isEmpty())
        GTEST_SKIP() << "no PAD files beside the checkout";
    int wellFormed = 0;
    for (const QString &file : files) {
        const QByteArray original = contents(folder + file);
        const PadDocument document(original);
        EXPECT_EQ(mergedExport(original, document.text().toUtf8()), original) << file;
        PadForm form;
        loadPADData(document, form);
        ErrorPass errors;
        field_rules::checkEntries(form, errors);
        EXPECT_EQ(mergedExport(original, pad_writer::document(form)), original) << file;

        form.text(FieldId::programVersion).setText(u"9.8.7 & <later>"_s);
        const auto merged = mergedExport(original, pad_writer::document(form));
        ASSERT_TRUE(merged) << file << merged.error().reason;
        const QByteArray laid = "9.8.7 &amp; &lt;later>";
        const qsizetype at = merged->indexOf(laid);
        ASSERT_GE(at, 0) << file;
        if (!document.holds(padField(FieldId::programVersion)))
            continue;
        EXPECT_TRUE(original.startsWith(merged->first(at))) << file;
        EXPECT_TRUE(original.endsWith(merged->sliced(at + laid.size()))) << file;
        const auto before = seen(original, u"Program_Version");
        wellFormed += before ? 1 : 0;
        EXPECT_TRUE(!before || seen(*merged, u"Program_Version") == before) << file;
    }
    EXPECT_GT(wellFormed, 80);
}

struct MergeCase
{
    const char *original;
    QList<std::pair<FieldId, QString>> values;
    const char *merged; ///< Null where the original has no place for them.
};

TEST(MergedDocument, PutsValuesWhereTheyBelong)
{
    using enum FieldId;
    const MergeCase cases[] = {
        // Tags, attributes, comments and the elements around stay; lists and their blanks, too.
        {"<XML_DIZ_INFO><!-- 1 --><Company_Name x='1' >A<!-- 2 --></Company_Name><b/></XML_DIZ_INFO>",
         {{companyName, u"Å & <B> ]]>"_s}},
         "<XML_DIZ_INFO><!-- 1 --><Company_Name x='1' >Å &amp; &lt;B> "
         "]]&gt;</Company_Name><b/></XML_DIZ_INFO>"},
        {"<Company_Name />\n<EULA>a &lt; <b>b</b></EULA><Address_1/>",
         {{companyName, u"A"_s}, {eula, u"a &lt; c <b>b</b>"_s}},
         "<Company_Name>A</Company_Name>\n<EULA>a &lt; c <b>b</b></EULA><Address_1/>"},
        {"<EULA>a &lt; b</EULA>",
         {{eula, u"a &lt; & <c> &#0; &#252;"_s}},
         "<EULA>a &lt; &amp; &lt;c> &amp;#0; &#252;</EULA>"},
        {"<EULA><![CDATA[a]]></EULA>", {{eula, u"a & <b"_s}}, "<EULA>a &amp; &lt;b</EULA>"},
        // What XML cannot hold, and line ends.
        {"<X>\r\n<EULA>a</EULA></X>",
         {{eula, u"a\nb\r\nc\x0C\rd"_s + QChar(0xD800)}},
         "<X>\r\n<EULA>a\r\nb\r\nc\uFFFD&#13;d\uFFFD</EULA></X>"},
        // Encodings.
        {"\xEF\xBB\xBF<EULA>a</EULA>", {{eula, u"ä"_s}}, "\xEF\xBB\xBF<EULA>ä</EULA>"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><EULA>\xE4</EULA>",
         {{eula, u"ä€潮😀"_s}},
         "<?xml version='1.0' encoding='ISO-8859-1'?><EULA>\xE4&#8364;&#28526;&#128512;</EULA>"},
        {"<?xml version='1.0' encoding='windows-1251'?><EULA>\xE4</EULA>",
         {{eula, u"дä"_s}},
         "<?xml version='1.0' encoding='windows-1251'?><EULA>\xE4&#228;</EULA>"},
        // What is missing comes after what stands before it in PAD, else before what follows, else in its
        // group.
        {"<XML_DIZ_INFO>\n <Company_Info>\n  <Address_1>1</Address_1>\n </Company_Info>\n</XML_DIZ_INFO>",
         {{companyName, u"A"_s}, {companyCountry, u"B"_s}, {generalFax, u"C"_s}, {salesEmail, u"D"_s}},
         "<XML_DIZ_INFO>\n <Company_Info>\n  <Company_Name>A</Company_Name>\n  <Address_1>1</Address_1>\n"
         "  <Country>B</Country>\n  <Support_Info><Sales_Email>D</Sales_Email><Fax_Phone>C</Fax_Phone>"
         "</Support_Info>\n </Company_Info>\n</XML_DIZ_INFO>"},
        {"<XML_DIZ_INFO>\n <Company_Info/>\n</XML_DIZ_INFO>",
         {{companyName, u"A"_s}},
         "<XML_DIZ_INFO>\n <Company_Info>\n \t<Company_Name>A</Company_Name>\n "
         "</Company_Info>\n</XML_DIZ_INFO>"},
        {"<XML_DIZ_INFO><Program_Descriptions><German><Keywords>k</Keywords></German></Program_Descriptions>"
         "</XML_DIZ_INFO>",
         {{pd45CharDescript, u"d"_s}, {keywordsView, u"l"_s}},
         "<XML_DIZ_INFO><Program_Descriptions><German><Keywords>l</Keywords><Char_Desc_45>d</Char_Desc_45></"
         "German>"
         "</Program_Descriptions></XML_DIZ_INFO>"},
        {"<Other/>", {{companyName, u"A"_s}}, nullptr},
        // A value reaches over other elements, since its tag was never closed.
        {"<X><Company_Name>A<Address_1>B</Address_1></X>", {{companyName, u"C"_s}}, nullptr},
    };
    for (const auto &[original, values, merged] : cases) {
        FieldValues laid;
        for (const auto &[field, value] : values)
            laid[size_t(field)] = value;
        const auto result = mergedDocument(original, laid);
        EXPECT_EQ(result ? result->toStdString() : "-", merged ? merged : "-") << original;
    }
    FieldValues laid;
    laid[size_t(companyName)] = u"潮"_s;
    const auto wide = [](const QString &text) {
        QStringEncoder encoder(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
        return QByteArray(encoder(text));
    };
    EXPECT_EQ(mergedDocument(wide(u"<Company_Name>ä</Company_Name>"_s), laid),
              wide(u"<Company_Name>潮</Company_Name>"_s));
    EXPECT_FALSE(mergedDocument(wide(u"<Company_Name>ä</Company_Name>"_s) + "x", laid));
}

TEST(MergedExport, ListsKeepWhatPadDoesNotKnowUnlessTheAuthorChangedThem)
{
    const QByteArray original = sample(u"old_tool.xml"_s);
    PadForm form;
    loadPADData(original, form);
    form.text(FieldId::companyName).setText(u"A <b> & more"_s);
    const auto merged = mergedExport(original, pad_writer::document(form));
    ASSERT_TRUE(merged) << merged.error().reason;
    PadForm again;
    loadPADData(*merged, again);
    EXPECT_EQ(again.value(FieldId::companyName), u"A <b> & more"_s);
    // What Quillon wrote itself, all of its texts unescaped.
    const QByteArray own = pad_writer::document(form);
    EXPECT_EQ(mergedExport(own, own), own);
    form.checkList(FieldId::osTable).toggle(0);
    const QByteArray changed = pad_writer::document(form);
    EXPECT_EQ(mergedExport(own, changed), changed);
}
