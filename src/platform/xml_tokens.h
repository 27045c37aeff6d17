#pragma once

#include <QByteArrayView>
#include <QList>

#include <cstdint>

namespace quillon {

/// A piece of an XML document as it stands: text, or markup that is complete in itself.
struct XmlToken
{
    enum Kind : std::uint8_t
    {
        Text,
        Start,
        Empty,
        End,
        Verbatim ///< A CDATA section.
    };
    Kind kind = Text;
    bool unclosed = false; ///< Of a start tag: no end tag belongs to it.
    QByteArrayView source = {};
    QByteArrayView name = {}; ///< Of a tag.

    [[nodiscard]] bool beginsElement() const { return kind == Start || kind == Empty; }
};

/// The pieces of @p utf8, to which they refer; comments, processing instructions and document types are left
/// out. Every end tag has its start tag: one that closes nothing is text, as is a "<" that begins no complete
/// tag. In time linear in the input, whatever it holds.
QList<XmlToken> xmlTokens(QByteArrayView utf8);

/// Whether @p c is one of XML's four blanks.
constexpr bool isXmlBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

} // namespace quillon
