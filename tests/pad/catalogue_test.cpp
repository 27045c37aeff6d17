#include "pad/field_catalogue.h"
#include "pad/layout.h"
#include "pad/messages.h"
#include "pad/vocabularies.h"
#include "support/printing.h"

#include <QSet>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quillon;

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

TEST(VocabularyTest, ListsHaveTheirLengthAndTheirOddities)
{
    const std::pair<FieldId, int> lengths[] = {
        {FieldId::programTypePopUp, 6}, {FieldId::programStatusPopUp, 6}, {FieldId::installSupportPopUp, 4},
        {FieldId::expireBasePopUp, 3},  {FieldId::otherPricePopUp, 162},  {FieldId::categoryPopUp, 155},
        {FieldId::languageTable, 139},  {FieldId::osTable, 33},           {FieldId::companyName, 0}};
    for (const auto &[field, length] : lengths) {
        const QStringList &list = vocabulary::of(field);
        EXPECT_EQ(list.size(), length);
        EXPECT_EQ(QSet<QString>(list.begin(), list.end()).size(), length);
        EXPECT_FALSE(list.contains(QString()));
    }
    EXPECT_TRUE(std::ranges::is_sorted(vocabulary::languages()));
    EXPECT_EQ(vocabulary::languages().indexOf(u"Other"_s), vocabulary::languages().indexOf(u"Pashto"_s) - 1);
    EXPECT_EQ(vocabulary::operatingSystems().last(2), (QStringList{u"Other"_s, u"Not Applicable"_s}));
    QStringList currencies = vocabulary::currencies();
    EXPECT_EQ(currencies.indexOf(u"CZK"_s) + 1, currencies.indexOf(u"CUP"_s));
    currencies.removeAll(u"CZK"_s);
    EXPECT_TRUE(std::ranges::is_sorted(currencies));

    QStringList groups;
    for (const QString &category : vocabulary::categories())
        groups.append(category.first(qMax(category.indexOf(u"::"_s), qsizetype(0))));
    EXPECT_TRUE(std::ranges::is_sorted(groups));
    EXPECT_EQ(groups.removeDuplicates(), 155 - 14);
    EXPECT_EQ(vocabulary::categories().filter(u"::Screen Savers: "_s).size(), 5);
    EXPECT_EQ(vocabulary::categories().filter(u"::Screen Savers:"_s).size(), 8);
}

TEST(MessagesTest, EveryKeyOfTheCatalogueHasItsThreeMessages)
{
    QSet<QString> keys;
    for (const PadField &field : padFields)
        keys.insert(field.messageKey.toString());
    keys.remove(QString());
    EXPECT_EQ(keys.size(), 39);
    for (const auto dictionary : {mwqnErrorMessagesEmpty, mwqnErrorMessagesOver, mwqnErrorMessagesUnder})
        EXPECT_EQ(QSet<QString>(dictionary().keyBegin(), dictionary().keyEnd()), keys);

    // A choice is made or not: three messages in one. An optional field may be empty.
    EXPECT_EQ(std::ranges::count_if(keys,
                                    [](const QString &key) {
                                        const QString empty = mwqnErrorMessagesEmpty().value(key);
                                        return empty == mwqnErrorMessagesOver().value(key) &&
                                               empty == mwqnErrorMessagesUnder().value(key);
                                    }),
              7);
    EXPECT_EQ(mwqnErrorMessagesEmpty().keys(QString()).size(), 8);
    EXPECT_EQ(mwqnErrorMessagesUnder().keys(QString()).size(), 4);
    EXPECT_EQ(mwqnErrorMessagesOver().keys(QString()).size(), 0);
    EXPECT_EQ(mwqnErrorMessagesUnder().value(u"salesEmail"_s), u"The sales email address is not valid."_s);
    EXPECT_EQ(mwqnErrorMessagesEmpty().value(u"padFileURL"_s), u"The PAD File url should end with .xml"_s);
}
