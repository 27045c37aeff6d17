#include "platform/text_decoding.h"
#include "support/tables.h"

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
    for (const QStringList &row : table(u"bytes_decoded"_s)) {
        const QString start =
            row[0].isEmpty() ? u"<a>"_s : u"<?xml version='1.0' encoding='%1'?><a>"_s.arg(row[0]);
        EXPECT_EQ(decodedXmlText(QString(start + row[1] + u"</a>").toLatin1()),
                  QString(start + row[2] + u"</a>"));
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
