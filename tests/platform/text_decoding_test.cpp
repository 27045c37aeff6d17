#include "platform/text_decoding.h"
#include "support/testing.h"

#include <QStringEncoder>

TEST(TextDecodingTest, MarksAndZerosTellTheEncoding)
{
    const QString text = u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<a>Zoë 日本 😀</a>"_s;
    using C = QStringConverter;
    for (const auto encoding : {C::Utf8, C::Utf16LE, C::Utf16BE, C::Utf32LE, C::Utf32BE})
        EXPECT_EQ(decodedXmlText(QStringEncoder(encoding, C::Flag::WriteBom)(text)), text) << encoding;
    for (const auto encoding : {C::Utf8, C::Utf16LE, C::Utf16BE})
        EXPECT_EQ(decodedXmlText(QStringEncoder(encoding)(text)), text) << encoding;
}

TEST(TextDecodingTest, TheDeclarationCountsOnlyWhereTheBytesDoNotContradict)
{
    const struct
    {
        QByteArray declared, body;
        QString expected;
    } cases[] = {{"", "Zo\xc3\xab", u"Zoë"_s},
                 {"", "Zo\xeb \x93q\x94 \x80", u"Zoë “q” €"_s},
                 {"iso-8859-1", "Zo\xeb \x93q\x94", u"Zoë “q”"_s},
                 {"ISO-8859-1", "Zo\xc3\xab", u"Zoë"_s},
                 {"ISO-8859-15", "\xa4", u"€"_s},
                 {"windows-1251", "\xcf\xf0", u"Пр"_s},
                 {"utf-8", "Zo\xeb", u"Zoë"_s},
                 {"UTF-16", "Zo\xeb!", u"Zoë!"_s},
                 {"utf-32le", "\xeb   ", u"ë   "_s},
                 {"no-such-encoding", "\xeb", u"ë"_s}};
    for (const auto &[declared, body, expected] : cases) {
        const QByteArray start =
            declared.isEmpty() ? "<a>" : QByteArray("<?xml version='1.0' encoding='" + declared + "'?><a>");
        EXPECT_EQ(decodedXmlText(start + body + "</a>"),
                  QString(QString::fromLatin1(start) + expected + u"</a>"));
    }
}

TEST(TextDecodingTest, AnyBytesGiveAText)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(char(byte));
    EXPECT_EQ(decodedXmlText(all).size(), 256);
    EXPECT_EQ(decodedXmlText(QByteArray("<\0a\0>", 5)).first(2), u"<a");
    EXPECT_EQ(decodedXmlText("\xef\xbb\xbf<a>\xeb</a>"), u"<a>\xFFFD</a>"_s);
    EXPECT_EQ(decodedXmlText(""), QString());
}
