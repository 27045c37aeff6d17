#include "overview/merged_export.h"
#include "pad/merged_document.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "support/tables.h"
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

TEST(MergedDocument, PutsValuesWhereTheyBelong)
{
    const auto bytes = [](const QString &text) {
        return text.contains(u"encoding=") ? text.toLatin1() : text.toUtf8();
    };
    for (const QStringList &row : table(u"merged"_s)) {
        FieldValues laid;
        for (const QString &value : row.sliced(1, row.size() - 2))
            laid[size_t(fieldNamed(value.section(u'=', 0, 0)).value())] = value.section(u'=', 1);
        const auto result = mergedDocument(bytes(row.first()), laid);
        EXPECT_EQ(result ? *result : "-", bytes(row.last())) << row.first();
    }
    FieldValues laid;
    laid[size_t(FieldId::companyName)] = u"潮"_s;
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
