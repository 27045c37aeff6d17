#include "platform/xml_escaping.h"

#include "platform/regex.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// The end of the reference that "&" at the start of @p text begins; 0 where it begins none that every reader
/// knows.
qsizetype referenceEnd(QStringView text)
{
    static constexpr qsizetype longest = 10;
    static const Regex reference(uR"(^&(?:amp|lt|gt|quot|apos|#([0-9]+)|#x([0-9A-Fa-f]+));)");
    const auto match = reference.firstMatch(text.first(qMin(text.size(), longest)));
    if (!match)
        return 0;
    const bool isHexadecimal = !match->captured(2).isEmpty();
    const QStringView number = match->captured(isHexadecimal ? 2 : 1);
    const bool isNamed = number.isEmpty();
    const char32_t character = isNamed ? U'&' : char32_t(number.toUInt(nullptr, isHexadecimal ? 16 : 10));
    return isXmlCharacter(character) && character <= QChar::LastValidCodePoint ? match->captured(0).size()
                                                                               : 0;
}

/// The character of @p text at @p at and what it takes: one unit or two.
QStringView characterAt(QStringView text, qsizetype at)
{
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return text.sliced(at, isPair ? 2 : 1);
}

QString escapedCharacter(QStringView character, QStringView before)
{
    switch (character.front().unicode()) {
    case u'&':
        return u"&amp;"_s;
    case u'<':
        return u"&lt;"_s;
    case u'>':
        return before.endsWith(u"]]") ? u"&gt;"_s : u">"_s;
    case u'\r': // A bare one would be read as a line feed.
        return u"&#13;"_s;
    default:
        break;
    }
    const bool isPair = character.size() == 2;
    return isPair || isXmlCharacter(character.front().unicode()) ? character.toString() : u"\uFFFD"_s;
}

QString escaped(QStringView text, bool keepsReferences)
{
    QString result;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype reference = keepsReferences && text[at] == u'&' ? referenceEnd(text.sliced(at)) : 0;
        if (reference > 0) {
            result += text.sliced(at, reference);
            at += reference;
            continue;
        }
        const bool isLineEnd = text.sliced(at).startsWith(u"\r\n");
        const QStringView character = isLineEnd ? text.sliced(at, 2) : characterAt(text, at);
        result += isLineEnd ? character.toString() : escapedCharacter(character, text.first(at));
        at += character.size();
    }
    return result;
}

} // namespace

bool isWellFormedContent(const QString &content)
{
    QXmlStreamReader reader(u"<x>"_s + content + u"</x>");
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

QString escapedXml(QStringView text)
{
    return escaped(text, false);
}

QString escapedXmlBesidesReferences(QStringView text)
{
    return escaped(text, true);
}

} // namespace quillon
