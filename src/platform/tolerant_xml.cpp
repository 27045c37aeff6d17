#include "platform/tolerant_xml.h"

#include "platform/text_decoding.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <pugixml.hpp>

namespace quillon {

namespace {

// Blanks and line ends stay as they stand.
constexpr unsigned parseFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_ws_pcdata;

/// The element after @p node in document order; a null node after the last. No recursion: depth is untrusted.
pugi::xml_node nextNode(pugi::xml_node node, const pugi::xml_node &top)
{
    if (const pugi::xml_node child = node.first_child())
        return child;
    for (; node && node != top; node = node.parent()) {
        if (const pugi::xml_node sibling = node.next_sibling())
            return sibling;
    }
    return {};
}

bool isElement(const pugi::xml_node &node)
{
    return node.type() == pugi::node_element;
}

/// Whether "&#" or "&#x", a number and ";" stand at @p reference, and the number is no character's.
bool isReferenceToNoCharacter(QByteArrayView reference)
{
    constexpr char32_t firstSurrogate = 0xD800;
    constexpr char32_t lastSurrogate = 0xDFFF;
    constexpr char32_t last = 0x10FFFF;
    const bool isHexadecimal = reference.startsWith("&#x");
    const QByteArrayView number = reference.sliced(isHexadecimal ? 3 : 2);
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(number.begin(), number.end(), value, isHexadecimal ? 16 : 10);
    if (end == number.begin() || end == number.end() || *end != ';')
        return false;
    return error != std::errc() || value == 0 || value > last ||
           (value >= firstSurrogate && value <= lastSurrogate);
}

/// @p utf8 in which a reference to no character is text: the parser would end a text at number 0, calculates
/// modulo 2^32 and makes bytes that are no UTF-8.
QByteArray withReferencesToCharactersOnly(const QByteArray &utf8)
{
    QByteArray result;
    qsizetype done = 0;
    for (qsizetype at = utf8.indexOf("&#"); at >= 0; at = utf8.indexOf("&#", at + 2)) {
        if (!isReferenceToNoCharacter(QByteArrayView(utf8).sliced(at)))
            continue;
        result.append(utf8.constData() + done, at - done).append("&amp;");
        done = at + 1;
    }
    return done == 0 ? utf8 : result.append(utf8.constData() + done, utf8.size() - done);
}

QString serialisedNode(const pugi::xml_node &node)
{
    struct Writer final : pugi::xml_writer
    {
        void write(const void *data, size_t size) override
        {
            text.append(static_cast<const char *>(data), qsizetype(size));
        }
        QByteArray text;
    } writer;
    node.print(writer, "", pugi::format_raw | pugi::format_no_empty_element_tags, pugi::encoding_utf8);
    // The parser writes a form feed as "&#12;"; here it stays what it was. Any other "&" is written "&amp;".
    if (writer.text.contains("&#")) {
        for (char c = 1; c < ' '; ++c) {
            const QByteArray reference = "&#" + QByteArray::number(c).rightJustified(2, '0') + ';';
            writer.text.replace(reference, QByteArray(1, c));
        }
    }
    return QString::fromUtf8(writer.text);
}

} // namespace

/// What is known of the elements of one name.
struct TolerantXml::Entry
{
    pugi::xml_node node; ///< The one whose value counts.
    bool closed = false;
    int count = 0;
};

TolerantXml::TolerantXml(const QString &text, IsElementName isElementName)
    : m_document(std::make_unique<pugi::xml_document>())
{
    QByteArray utf8 = withReferencesToCharactersOnly(text.toUtf8());
    if (utf8.contains('\0')) // The parser would end at a NUL; U+FFFD stands for it.
        utf8.replace('\0', "\xEF\xBF\xBD");
    const auto load = [this](const QByteArray &xml) {
        return m_document->load_buffer(xml.constData(), size_t(xml.size()), parseFlags, pugi::encoding_utf8);
    };
    // An empty document is an answer, not a fault.
    const auto result = load(utf8);
    const bool isSound = result || result.status == pugi::status_no_document_element;
    if (!isSound)
        load(repairedXml(utf8, isElementName));
    buildIndex(!isSound);
}

TolerantXml::TolerantXml(TolerantXml &&) noexcept = default;
TolerantXml::~TolerantXml() = default;

void TolerantXml::buildIndex(bool isRepaired)
{
    for (pugi::xml_node node = m_document->first_child(); node; node = nextNode(node, *m_document)) {
        if (!isElement(node))
            continue;
        const pugi::xml_attribute mark = node.first_attribute();
        const bool closed = !isRepaired || std::strcmp(mark.name(), unclosedMark) != 0;
        if (!closed) {
            node.remove_attribute(mark);
            m_unclosed.insert(node.hash_value());
        }
        const QByteArrayView name(node.name());
        Entry &entry = m_index[QByteArray::fromRawData(name.data(), name.size())];
        if (entry.count++ == 0 || (closed && !entry.closed)) {
            entry.node = node;
            entry.closed = closed;
        }
    }
}

std::optional<QString> TolerantXml::first(QStringView tag) const
{
    const pugi::xml_node node = firstNode(tag);
    return node ? std::optional(stringValue(node)) : std::nullopt;
}

pugi::xml_node TolerantXml::firstNode(QStringView tag) const
{
    return m_index.value(tag.toUtf8()).node;
}

bool TolerantXml::isClosed(const pugi::xml_node &node) const
{
    return !m_unclosed.contains(node.hash_value());
}

int TolerantXml::count(QStringView tag) const
{
    return m_index.value(tag.toUtf8()).count;
}

QString TolerantXml::serialised() const
{
    return serialisedNode(*m_document);
}

QString TolerantXml::stringValue(const pugi::xml_node &node)
{
    QByteArray utf8;
    for (pugi::xml_node each = node.first_child(); each; each = nextNode(each, node)) {
        if (each.type() == pugi::node_pcdata || each.type() == pugi::node_cdata)
            utf8.append(each.value());
    }
    static constexpr QByteArrayView blanks = " \t\r\n";
    const bool isBlank = std::all_of(utf8.cbegin(), utf8.cend(), [](char c) { return blanks.contains(c); });
    return isBlank ? QString() : exactText(utf8);
}

} // namespace quillon
