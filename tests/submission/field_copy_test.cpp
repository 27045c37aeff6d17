#include "submission/field_copy.h"
#include "support/tables.h"

#include <QSet>

namespace {

std::optional<QString> pasted(QStringView action, const QString &pad, const QLocale &locale = QLocale::c())
{
    return pasteText(*fieldCopyButtonNamed(action), pad.toUtf8(), locale);
}

} // namespace

TEST(FieldCopyButtons, CoverEveryFieldButTheStatusAndPartsOfDatesOnceAndPageByPage)
{
    QHash<QStringView, int> times;
    QSet<QStringView> actions;
    QStringList pages;
    for (const FieldCopyButton &button : fieldCopyButtons) {
        ++times[button.tag()];
        actions.insert(button.action);
        if (pages.isEmpty() || pages.last() != button.page())
            pages.append(button.page().toString());
        EXPECT_FALSE(button.caption.isEmpty());
        EXPECT_EQ(fieldCopyButtonNamed(button.action), &button);
    }
    EXPECT_EQ(actions.size(), times.size());
    EXPECT_EQ(pages.join(u", "), u"Company Information, Program Information, Program Descriptions, "
                                 "Permissions, Web Information");
    for (const PadField &field : padFields) {
        const bool hasNone = field.element == u"Program_Release_Status" ||
                             field.element.endsWith(u"_Month") || field.element.endsWith(u"_Day");
        EXPECT_EQ(times.value(field.element), hasNone ? 0 : 1) << field.element.toString();
    }
    EXPECT_EQ(fieldCopyButtonNamed(u"sustemRequirements")->tag(), u"Program_System_Requirements");
    EXPECT_EQ(fieldCopyButtonNamed(u"generalFax")->tag(), u"Fax_Phone");
    EXPECT_EQ(fieldCopyButtonNamed(u"COMPANYNAME"), nullptr);
}

TEST(FieldCopyButtons, PasteTheTextAsItStandsBetweenTheFirstTags)
{
    for (const QStringList &row : table(u"pasted"_s))
        EXPECT_EQ(pasted(u"keywords", row[0]), row.size() > 1 ? std::optional(row[1]) : std::nullopt)
            << row[0];
    EXPECT_EQ(pasted(u"sizeInKB", u"<File_Size_K>0 KB</File_Size_K>"_s), u"0 KB"_s);
    EXPECT_EQ(pasteText(*fieldCopyButtonNamed(u"keywords"), "<Keywords>caf\xe9</Keywords>"), u"café"_s);
}

TEST(FieldCopyButtons, PasteADateInTheShortStyleOfTheAuthorsCountry)
{
    const auto release = [](const QString &month, const QString &day, const QString &year) -> QString {
        return u"<Program_Release_Month>"_s + month + u"</Program_Release_Month><Program_Release_Day>"_s +
               day + u"</Program_Release_Day><Program_Release_Year>"_s + year + u"</Program_Release_Year>"_s;
    };
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(pasted(u"programReleaseDate", release(u"07"_s, u"04"_s, u"2009"_s), us), u"7/4/09"_s);
    EXPECT_EQ(pasted(u"programReleaseDate", release(u"7"_s, u"4"_s, u"2009"_s), QLocale(QLocale::German)),
              u"04.07.09"_s);
    QString expiry = release(u"12"_s, u"31"_s, u"2010"_s).replace(u"Program_Release"_s, u"Expire"_s);
    EXPECT_EQ(pasted(u"expireDate", expiry, us), u"12/31/10"_s);
    EXPECT_EQ(pasted(u"programReleaseDate", expiry, us), std::nullopt);
    for (const QString &month : {u""_s, u"13"_s, u"July"_s, u"0"_s, u"-1"_s})
        EXPECT_EQ(pasted(u"programReleaseDate", release(month, u"4"_s, u"2009"_s), us), std::nullopt);
    EXPECT_EQ(pasted(u"programReleaseDate", release(u"2"_s, u"29"_s, u"2009"_s), us), std::nullopt);
    EXPECT_EQ(pasted(u"programReleaseDate", release(u"2"_s, u"2"_s, u"-9"_s), us), std::nullopt);
}
