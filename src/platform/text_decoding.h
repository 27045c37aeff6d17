#pragma once

#include <QByteArray>
#include <QString>

namespace quillon {

/// A text and the encoding that it was read in.
struct DecodedXml
{
    QString text;
    QByteArray encoding; ///< As QStringConverter knows it.
};

/// The text in @p bytes of an XML file from anywhere.
///
/// Tried in this order: the byte-order mark (which is dropped), UTF-16 told by the zero beside the first "<",
/// valid UTF-8, the encoding that the XML declaration names, windows-1252. So a declaration never overrules
/// the bytes. Always gives a text; a byte that the encoding does not know becomes U+FFFD.
DecodedXml decodedXml(const QByteArray &bytes);
inline QString decodedXmlText(const QByteArray &bytes)
{
    return decodedXml(bytes).text;
}

/// The text whose UTF-8 is @p bytes, all of it. QString::fromUtf8() and QFile::decodeName() take a U+FEFF at
/// its start for a byte-order mark and drop it; in a name it is a letter as others are.
QString exactText(QByteArrayView bytes);

} // namespace quillon
