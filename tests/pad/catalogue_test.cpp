#include "pad/field_catalogue.h"
#include "pad/layout.h"
#include "pad/messages.h"
#include "pad/vocabularies.h"
#include "support/testing.h"

#include <QSet>

TEST(CatalogueTest, EveryFieldIsFoundByEitherNameAndNothingElseIs)
{
    QSet<QStringView> names;
    for (const PadField &field : padFields) {
        EXPECT_EQ(&padField(field.id), &field);
        EXPECT_EQ(fieldNamed(field.control), field.id);
        EXPECT_EQ(fieldNamed(field.element), field.id);
        names << field.control << field.element;
    }
    EXPECT_EQ(names.size(), 2 * 64);
    for (const QStringView unknown : {u"", u"company_name", u"CompanyName", u"MASTER_PAD_INFO", u"Web_Info"})
        EXPECT_FALSE(fieldNamed(unknown));
}

TEST(CatalogueTest, EveryFieldStandsInItsGroupOfTheLayout)
{
    QStringList open;
    QSet<QStringView> elements;
    for (const LayoutLine &line : padLayout) {
        if (line.kind == LayoutLine::Open) {
            open.append(line.tag.toString());
        } else if (line.kind == LayoutLine::Close) {
            open.removeLast();
        } else if (const auto field = fieldNamed(line.tag)) {
            EXPECT_EQ(padField(*field).group, open.join(u'/'));
            elements.insert(line.tag);
        }
    }
    EXPECT_EQ(elements.size(), 64);
}

TEST(VocabularyTest, NothingStandsTwiceAndNothingIsEmpty)
{
    const std::pair<FieldId, int> lengths[] = {
        {FieldId::programTypePopUp, 6}, {FieldId::programStatusPopUp, 6}, {FieldId::installSupportPopUp, 4},
        {FieldId::expireBasePopUp, 3},  {FieldId::otherPricePopUp, 162},  {FieldId::categoryPopUp, 155},
        {FieldId::languageTable, 139},  {FieldId::osTable, 33},           {FieldId::companyName, 0}};
    for (const auto &[field, length] : lengths) {
        QStringList list = vocabulary::of(field);
        EXPECT_FALSE(list.contains(QString()));
        EXPECT_EQ(list.removeDuplicates(), 0);
        EXPECT_EQ(list.size(), length);
    }
}

TEST(MessagesTest, EveryKeyOfTheCatalogueHasItsThreeMessages)
{
    QSet<QString> keys;
    for (const PadField &field : padFields)
        keys.insert(field.messageKey.toString());
    keys.remove(QString());
    for (const auto dictionary : {mwqnErrorMessagesEmpty, mwqnErrorMessagesOver, mwqnErrorMessagesUnder})
        EXPECT_EQ(QSet<QString>(dictionary().keyBegin(), dictionary().keyEnd()), keys);
}
