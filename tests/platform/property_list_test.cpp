#include "platform/property_list.h"
#include "support/testing.h"

#include <random>
#include <unistd.h>

static QByteArray plist(const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + content + "</plist>";
}

static QByteArray nested(const QByteArray &afterEach, int depth = 100'000)
{
    return plist(QByteArray("<dict><key>k</key>" + afterEach).repeated(depth) + "<string>v</string>" +
                 QByteArray("</dict>").repeated(depth));
}

TEST(PropertyListTest, WhatIsWrittenReadsBackInTheOrderOfTheNames)
{
    StringDictionary all;
    for (const QString &text : {u""_s, u" blanks \t\n "_s, u"<>&\"'"_s, u"]]> &amp; &#65;"_s, u"\r\n"_s,
                                u"\f\x01"_s, u"Zoë 😀"_s, u"\xfeffZ"_s, u"<!-- <dict> -->"_s}) {
        const StringDictionary one{{text, text}};
        EXPECT_EQ(property_list::read(property_list::write(one)), one) << text;
        all[text] = u"v"_s;
    }
    for (int number = 0; number < 8000; ++number)
        all[QString::number(number)] = u"https://site.example/?"_s + u"a=1&"_s.repeated(40);
    EXPECT_EQ(property_list::read(property_list::write(all)), all);
    EXPECT_TRUE(property_list::write({{u"b"_s, u"2"_s}, {u"A"_s, u"1"_s}})
                    .contains("<plist version=\"1.0\">\n<dict>\n\t<key>A</key>\n\t<string>1</string>\n"
                              "\t<key>b</key>\n\t<string>2</string>\n</dict>\n</plist>"));
}

TEST(PropertyListTest, TakesTheTextsOfWhatOthersWrite)
{
    const QByteArray list = plist("<!-- </dict> --><dict><key>a</key><string><![CDATA[<b>]]> &amp; c</string>"
                                  "<key>n</key><integer>1</integer><key>t</key><true/><key>d</key><dict/>"
                                  "<key>l</key><array><string>x</string></array>"
                                  "<key>z</key><string>&#252;</string></dict>");
    EXPECT_EQ(property_list::read(list), (StringDictionary{{u"a"_s, u"<b> & c"_s}, {u"z"_s, u"ü"_s}}));
}

TEST(PropertyListTest, RefusesWhatIsNoDictionary)
{
    const QByteArray entry("<key>k</key><string></string>");
    // Nested too deep also where end tags that are none would make a careless count forget it.
    const QByteArray refused[] = {
        QByteArray("garbage"),
        plist("<array><string>a</string></array>"),
        plist("<string>a</string>"),
        plist("<dict><key>a</key></key></dict>"),
        plist("<dict><string>no key</string></dict>"),
        QByteArray("bplist00\xd1\x01\x02QaQb"),
        plist("<dict>" + QByteArray("<key>k</key><array></array>").repeated(1000) + "</dict>"),
        nested(""),
        nested("<!-- </a></a> -->"),
        nested("<?\"?></dict>\"?>"),
        property_list::emptyText() + QByteArray(property_list::maxSize, ' '),
        plist(QByteArray("<dict><key>a</key><string>b\0c</string></dict>", 45)),
        plist(QByteArray("<dict><key>a\0b</key><string>c</string></dict>", 45)),
        plist("<dict>" + entry.repeated(10'001) + "</dict>"),
        plist("<dict><key>a</key><string>" + QByteArray("&amp;").repeated(50'000) + "</string></dict>")};
    for (const QByteArray &list : refused) // Whatever the library may do to its process.
        EXPECT_EXIT(::_exit(property_list::read(list) ? 1 : 0), testing::ExitedWithCode(0), "")
            << list.left(200);
}

TEST(PropertyListTest, HalvesAndDamageAreNeverTakenForMore)
{
    const StringDictionary dictionary{{u"first"_s, u"1"_s}, {u"second"_s, u"2"_s}};
    const QByteArray whole = property_list::write(dictionary).trimmed();
    const qsizetype end = whole.indexOf("</dict>");
    for (qsizetype length = 0; length < end; ++length)
        EXPECT_FALSE(property_list::read(whole.first(length))) << length;
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        QByteArray damaged = whole;
        for (int change = 0; change < 4; ++change)
            damaged[qsizetype(random() % size_t(whole.size()))] = char(random());
        const auto read = property_list::read(damaged);
        EXPECT_LE(read ? read->size() : 0, dictionary.size());
    }
}
