#include "platform/xml_repair.h"

#include "platform/xml_tokens.h"

#include <algorithm>

namespace quillon {

namespace {

/// Writes tokens down as a well-formed document.
class Repair
{
public:
    explicit Repair(qsizetype inputSize) { m_xml.reserve(inputSize + inputSize / 8); }

    void take(const XmlToken &token, bool isText)
    {
        if (isText)
            takeText(token.source);
        else if (token.kind == XmlToken::Start)
            takeStart(token);
        else if (token.kind == XmlToken::End)
            closeUpTo(token.name);
        else
            m_xml.append(token.source);
    }

    QByteArray finished()
    {
        while (!m_open.isEmpty())
            closeInnermost();
        return std::move(m_xml);
    }

private:
    void takeText(QByteArrayView text)
    {
        // The blanks that follow a start tag that was never closed lay the document out.
        if (!m_open.isEmpty() && m_open.last()->unclosed && std::ranges::all_of(text, isXmlBlank))
            return;
        const bool isBracketed = text.startsWith('<');
        m_xml.append(isBracketed ? "&lt;" : "").append(text.sliced(isBracketed ? 1 : 0));
    }

    void takeStart(const XmlToken &token)
    {
        m_xml.append('<').append(token.name);
        if (token.unclosed)
            m_xml.append(' ').append(unclosedMark).append("=''");
        m_xml.append(token.source.sliced(1 + token.name.size()));
        m_open.append(&token);
    }

    void closeUpTo(QByteArrayView name)
    {
        while (m_open.last()->name != name)
            closeInnermost();
        closeInnermost();
    }

    void closeInnermost() { m_xml.append("</").append(m_open.takeLast()->name).append('>'); }

    QByteArray m_xml;
    QList<const XmlToken *> m_open;
};

} // namespace

QByteArray repairedXml(const QByteArray &utf8, IsElementName isElementName)
{
    Repair repair(utf8.size());
    const QList<XmlToken> tokens = xmlTokens(utf8);
    for (const XmlToken &token : tokens) {
        const bool isBracketedText = token.unclosed && isElementName && !isElementName(token.name);
        repair.take(token, token.kind == XmlToken::Text || isBracketedText);
    }
    return repair.finished();
}

} // namespace quillon
