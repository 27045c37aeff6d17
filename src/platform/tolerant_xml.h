#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>

namespace pugi {
class xml_document;
class xml_node;
} // namespace pugi

namespace quillon {

/**
 * An XML document read however malformed it is: what authors' own tools, and Quillon itself, write holds bare
 * "&", stray "<" and tags that are never closed.
 *
 * A "<" that opens no complete tag is text, an end tag that closes nothing is text, a start tag that is never
 * closed ends with its parent. Whitespace inside text stays; text of nothing but whitespace reads as empty.
 * No DTD is loaded and no entity expanded beyond the five built-in ones and character references.
 *
 * Reading always ends, in time linear in the input, and a fault inside one element leaves the others alone.
 */
class TolerantXml
{
public:
    explicit TolerantXml(const QString &text);
    TolerantXml(TolerantXml &&) noexcept;
    ~TolerantXml();

    /// The string value of the first element named @p tag (case-sensitive) at any depth; none without one.
    /// An element that its author never closed gives way to a later one that was.
    [[nodiscard]] std::optional<QString> first(QStringView tag) const;

    /// How many elements named @p tag there are.
    [[nodiscard]] int count(QStringView tag) const;

    /// The elements as text, every empty one as a start and an end tag; empty without elements.
    [[nodiscard]] QString serialised() const;

    /// The tree itself, for callers that walk all of it.
    [[nodiscard]] const pugi::xml_document &document() const { return *m_document; }

    /// The text of @p node and all below it, as XPath's string value; empty where that is nothing but
    /// whitespace.
    static QString stringValue(const pugi::xml_node &node);

private:
    struct Entry;
    void buildIndex(bool isRepaired);

    std::unique_ptr<pugi::xml_document> m_document;
    QHash<QByteArray, Entry> m_index;
};

/// @p utf8 made well-formed by the rules above, start tags that were never closed marked by a first attribute
/// "quillon.unclosed". pugixml reads whatever comes out. No NUL may be in it.
QByteArray repairedXml(const QByteArray &utf8);

/// The element named @p tag whose value TolerantXml::first() gives, as it stands in @p utf8 from its start
/// tag to its end tag; for editing a document as text. Null without one.
///
/// A start tag that was never closed reaches to the next such tag of its name in the same parent, else over
/// the text that follows it, without the blanks at that text's end.
QByteArrayView firstElementSource(QByteArrayView utf8, QByteArrayView tag);

/// What stands in @p utf8 between "<TAG>" of that element and the first "</TAG>" after it, markup or not: a
/// text in which other end tags, or more start tags of its name, are what its author typed. Null where the
/// element's tags are not written in this very way.
QByteArrayView firstElementText(QByteArrayView utf8, QByteArrayView tag);

} // namespace quillon
