#pragma once

#include "platform/xml_repair.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
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
    /// Reads @p text. With @p isElementName, a start tag that is never closed and bears another name is text
    /// as well: what an author typed in angle brackets.
    explicit TolerantXml(const QString &text, IsElementName isElementName = nullptr);
    TolerantXml(TolerantXml &&) noexcept;
    ~TolerantXml();

    /// The string value of the first element named @p tag (case-sensitive) at any depth; none without one.
    /// An element that its author never closed gives way to a later one that was.
    [[nodiscard]] std::optional<QString> first(QStringView tag) const;

    /// The element whose string value first() gives; a null node without one.
    [[nodiscard]] pugi::xml_node firstNode(QStringView tag) const;

    /// Whether its author closed the element @p node.
    [[nodiscard]] bool isClosed(const pugi::xml_node &node) const;

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
    QSet<size_t> m_unclosed; ///< Elements that their author never closed, by their hash values.
};

} // namespace quillon
