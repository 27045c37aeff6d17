#pragma once

#include "platform/xml_tokens.h"

#include <optional>

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

    /// Where an element stands, in bytes from the beginning.
    struct Place
    {
        qsizetype begin = 0;
        qsizetype contentBegin = 0; ///< Of an empty element in one tag, as contentEnd, its end.
        qsizetype contentEnd = 0;
        qsizetype end = 0;
        bool isOneTag = false;
    };

    /// Where element() stands; the content of one that was never closed is the text that follows its tag.
    [[nodiscard]] std::optional<Place> place(QByteArrayView tag) const;

private:
    [[nodiscard]] qsizetype firstElement(QByteArrayView tag) const;
    [[nodiscard]] qsizetype endOfClosed(qsizetype first) const;
    [[nodiscard]] qsizetype endOfUnclosed(qsizetype first) const;
    [[nodiscard]] qsizetype outermostOpen(qsizetype first) const;

    QByteArrayView m_utf8;
    QList<XmlToken> m_tokens;
};

} // namespace quillon
