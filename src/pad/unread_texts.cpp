#include "pad/unread_texts.h"

#include "pad/layout.h"
#include "pad/pad_document.h"
#include "platform/regex.h"
#include "platform/text_decoding.h"

#include <QList>

#include <algorithm>
#include <array>
#include <pugixml.hpp>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

constexpr QStringView descriptionsGroup = u"Program_Descriptions";

/// Whether elements of this name hold nothing but other elements.
bool isGroup(QStringView tag)
{
    return tag == padRootElement || std::ranges::any_of(padLayout, [tag](const LayoutLine &line) {
               return line.kind == LayoutLine::Open && line.tag == tag;
           });
}

/// Whether @p text is nothing but tags that close or open nothing.
bool isOnlyTags(const QString &text)
{
    static const Regex tag(u"<[^<>]*>");
    return text.contains(u'<') && tag.replaceAll(text, {}).trimmed().isEmpty();
}

/// An element of a field whose value is not the one that is read.
struct OtherElement
{
    FieldId field;
    QString unknown;  ///< The tag of the outermost element around it that PAD does not have.
    QString language; ///< Empty outside of the descriptions.
    QString value;
};

/// Where the walk is.
struct Place
{
    bool isRead = false;   ///< In an element that a field reads, or that Quillon writes by itself.
    qsizetype other = -1;  ///< In one of the other elements of a field: its number.
    QString unknown = {};  ///< In an element that PAD does not have: the outermost one's tag.
    QString group = {};    ///< The innermost group around.
    QString language = {}; ///< The element in the descriptions.
};

/// Walks a whole document. Iterative, as the depth of the tree is untrusted.
class Walk
{
public:
    explicit Walk(const PadDocument &document) : m_xml(document.xml())
    {
        for (const PadField &field : padFields)
            m_read[size_t(field.id)] = m_xml.firstNode(field.element);
        walk();
        sortOthers();
    }

    UnreadTexts found() { return std::move(m_found); }

private:
    /// What is around the texts and the elements of one element.
    struct Around
    {
        Place texts;
        Place elements;
    };

    void walk()
    {
        const pugi::xml_node top = m_xml.document().root();
        QList<Around> around = {{}};
        for (pugi::xml_node node = top.first_child(); node;) {
            if (node.type() == pugi::node_element)
                around.append(inside(node, around.last().elements));
            else
                note(node, around.last().texts);
            if (node.type() == pugi::node_element && node.first_child()) {
                node = node.first_child();
                continue;
            }
            if (node.type() == pugi::node_element)
                around.removeLast();
            while (!node.next_sibling() && node.parent() && node.parent() != top) {
                node = node.parent();
                around.removeLast();
            }
            node = node.next_sibling();
        }
    }

    /// What a start tag that was never closed holds are the texts that follow it; the elements after it were
    /// meant to stand beside it.
    Around inside(const pugi::xml_node &element, const Place &outer)
    {
        if (outer.isRead)
            return {outer, outer};
        const Place place = placeOf(element, outer);
        const bool reachesToTheElements =
            place.isRead || place.group != outer.group || m_xml.isClosed(element);
        return {place, reachesToTheElements ? place : outer};
    }

    Place placeOf(const pugi::xml_node &element, Place place)
    {
        const QString tag = QString::fromUtf8(element.name());
        const QStringView meant = padTag(tag);
        if (const auto field = fieldOfElement(tag))
            enterField(*field, element, place);
        else if (place.group == descriptionsGroup && place.language.isEmpty())
            place.language = tag;
        else if (isGroup(meant))
            place.group = meant.toString();
        else if (meant == tag)
            place.isRead = true; // Of the document's head.
        else if (place.unknown.isEmpty())
            place.unknown = tag;
        return place;
    }

    void enterField(FieldId field, const pugi::xml_node &element, Place &place)
    {
        place.isRead = element == m_read[size_t(field)];
        if (place.isRead) {
            m_languageRead[size_t(field)] = place.language;
            return;
        }
        place.other = m_others.size();
        m_others.append({field, place.unknown, place.language, {}});
    }

    void note(const pugi::xml_node &node, const Place &place)
    {
        const QString text = QString::fromUtf8(node.value());
        if (place.isRead || text.trimmed().isEmpty())
            return;
        if (place.other >= 0)
            m_others[place.other].value += exactText(node.value());
        else if (isOnlyTags(text))
            return;
        else if (!place.unknown.isEmpty())
            m_found.unknown[place.unknown].add(text);
        else
            m_found.stray[place.language.isEmpty() ? place.group : place.language].add(text);
    }

    void sortOthers()
    {
        std::array<std::optional<QString>, fieldCount> readValues;
        for (const OtherElement &other : std::as_const(m_others)) {
            std::optional<QString> &read = readValues[size_t(other.field)];
            if (!read)
                read = TolerantXml::stringValue(m_read[size_t(other.field)]).simplified();
            const QString value = other.value.simplified();
            if (value.isEmpty() || value == *read)
                continue;
            if (!other.unknown.isEmpty()) {
                m_found.unknown[other.unknown].add(other.value);
                continue;
            }
            const QString language = m_languageRead[size_t(other.field)];
            if (language.isEmpty() || other.language.isEmpty() || language == other.language) {
                m_found.repeated[other.field].add(other.value);
                continue;
            }
            UnreadTexts::Language &lost = m_found.languages[other.language];
            lost.texts.add(other.value);
            if (!lost.kept.contains(language))
                lost.kept.append(language);
        }
    }

    const TolerantXml &m_xml;
    std::array<pugi::xml_node, fieldCount> m_read;
    std::array<QString, fieldCount> m_languageRead;
    QList<OtherElement> m_others;
    UnreadTexts m_found;
};

} // namespace

UnreadTexts unreadTexts(const PadDocument &document)
{
    return Walk(document).found();
}

} // namespace quillon
