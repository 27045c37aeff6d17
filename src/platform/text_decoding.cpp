#include "platform/text_decoding.h"

#include "platform/regex.h"

#include <QStringDecoder>

#include <optional>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

std::optional<QString> decoded(QByteArrayView bytes, QStringDecoder decoder)
{
    QString text = decoder.isValid() ? QString(decoder(bytes)) : QString();
    return decoder.isValid() && !decoder.hasError() ? std::optional(std::move(text)) : std::nullopt;
}

/// The encoding that tells itself by the first bytes: a byte-order mark, or a zero on one side of the first
/// "<".
std::optional<QStringConverter::Encoding> evidentEncoding(const QByteArray &bytes)
{
    if (const auto marked = QStringConverter::encodingForData(bytes))
        return marked;
    if (bytes.startsWith(QByteArrayView("<\0", 2)))
        return QStringConverter::Utf16LE;
    if (bytes.startsWith(QByteArrayView("\0<", 2)))
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

/// The name in the XML declaration, which stands at the very start or nowhere.
QByteArray declaredEncoding(const QByteArray &bytes)
{
    static const Regex declaration(uR"(^\s*<\?xml[^>]*encoding\s*=\s*["']([A-Za-z0-9._:-]+)["'])");
    static constexpr qsizetype longestDeclaration = 200;
    const QString start = QString::fromLatin1(bytes.first(qMin(bytes.size(), longestDeclaration)));
    const auto match = declaration.firstMatch(start);
    const QByteArray name = match ? match->captured(1).toLatin1().toLower() : QByteArray();
    // As every browser does: files that say Latin-1 hold the quotation marks of its Windows extension.
    return name == "iso-8859-1" || name == "latin1" ? QByteArrayLiteral("windows-1252") : name;
}

} // namespace

DecodedXml decodedXml(const QByteArray &bytes)
{
    if (const auto evident = evidentEncoding(bytes))
        return {QStringDecoder(*evident)(bytes), QStringConverter::nameForEncoding(*evident)};
    if (auto text = decoded(bytes, QStringDecoder(QStringConverter::Utf8)))
        return {*std::move(text), "UTF-8"};
    // An encoding in which the declaration itself would not read is not the one that it is written in.
    const QByteArray declared = declaredEncoding(bytes);
    auto text = decoded(bytes, QStringDecoder(declared.constData()));
    if (text && text->contains(u"<?xml"_s))
        return {*std::move(text), declared};
    return {QStringDecoder("windows-1252")(bytes), "windows-1252"};
}

QString exactText(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(bytes);
}

} // namespace quillon
