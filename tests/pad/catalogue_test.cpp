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
        EXPECT_EQ(fieldNamed(field.control), field.id);
        EXPECT_EQ(fieldNamed(field.element), field.id);
        names << field.control << field.element;
    }
    EXPECT_EQ(names.size(), 2 * fieldCount);
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
    EXPECT_EQ(elements.size(), fieldCount);
}

TEST(VocabularyTest, EveryFieldThatIsChosenHasOneOfDifferentTexts)
{
    for (const PadField &field : padFields) {
        QStringList list = vocabulary::of(field.id);
        EXPECT_FALSE(list.contains(QString()));
        EXPECT_EQ(list.removeDuplicates(), 0);
        const bool isChosen = field.kind == FieldKind::PopUp || field.kind == FieldKind::CheckList;
        EXPECT_NE(list.isEmpty(), isChosen) << field.control.toString();
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
