#pragma once

#include "platform/xml_tokens.h"

namespace quillon {

/**
 * An XML document as it stands, for editing it as text or cutting texts out of it: its elements are those
 * that TolerantXml reads, found by their places.
 *
 * Cutting it into tokens is done once, each look for an element goes over the tokens.
 */
class XmlSource
{
public:
    /// Refers to @p utf8, which must outlive it.
    explicit XmlSource(QByteArrayView utf8) : m_utf8(utf8), m_tokens(xmlTokens(utf8)) {}

    /// The element named @p tag whose value TolerantXml::first() gives, from its start tag to its end tag.
    /// Null without one.
    ///
    /// A start tag that was never closed reaches to the next such tag of its name in the same parent, else
    /// over the text that follows it, without the blanks at that text's end.
    [[nodiscard]] QByteArrayView element(QByteArrayView tag) const;

    /// What stands between "<TAG>" of that element and the first "</TAG>" after it, markup or not: other end
    /// tags, and more start tags of its name, are what the author typed. Null where the element's tags are
    /// written in any other way.
    [[nodiscard]] QByteArrayView text(QByteArrayView tag) const;

private:
    [[nodiscard]] qsizetype firstElement(QByteArrayView tag) const;
    [[nodiscard]] qsizetype endOfClosed(qsizetype first) const;
    [[nodiscard]] qsizetype endOfUnclosed(qsizetype first) const;
    [[nodiscard]] qsizetype outermostOpen(qsizetype first) const;

    QByteArrayView m_utf8;
    QList<XmlToken> m_tokens;
};

} // namespace quillon
