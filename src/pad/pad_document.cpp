#include "pad/pad_document.h"

#include "pad/layout.h"
#include "platform/text_decoding.h"
#include "platform/xml_source.h"

#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

/// The document as it stands.
struct PadDocument::Source
{
    explicit Source(const QString &text);

    QByteArray utf8;
    XmlSource elements;
    bool hasShortForms;
};

namespace {

using FieldContents = std::array<QStringView, fieldCount>;

/// The contents of @p text if it is laid out as the writer does it; none otherwise.
///
/// There each element is found by its line and the line that follows it, so that no value, whatever it holds,
/// is mistaken for another element. A value ends at the first end tag of its element all the same.
std::optional<FieldContents> writtenContents(QStringView text)
{
    FieldContents contents;
    const QString opening = layoutOpening();
    if (!text.startsWith(opening))
        return std::nullopt;
    qsizetype at = opening.size();
    for (auto line = padLayout.begin(); line != padLayout.end(); ++line) {
        const QString start = lineStart(*line);
        if (!text.sliced(at).startsWith(start))
            return std::nullopt;
        at += start.size();
        if (line->kind == LayoutLine::Element) {
            const QString close = endTag(line->tag);
            const QString next = line + 1 == padLayout.end() ? layoutClosing() : lineStart(line[1]);
            const qsizetype end = text.indexOf(QString(close + u'\n' + next), at);
            if (end < 0)
                return std::nullopt;
            if (const auto field = fieldOfElement(line->tag))
                contents[size_t(*field)] = text.sliced(at, text.indexOf(close, at) - at);
            at = end + close.size();
        }
        if (!text.sliced(at).startsWith(u'\n'))
            return std::nullopt;
        ++at;
    }
    return text.sliced(at) == layoutClosing() ? std::optional(contents) : std::nullopt;
}

/// The tag of the element that "/>" at @p end ends in its shortest form, with or without a blank; null where
/// no such tag stands there.
QStringView tagBefore(QStringView text, qsizetype end)
{
    static constexpr qsizetype longestTag =
        64; // So that a text full of "/>" is not searched again and again.
    QStringView before = text.first(end).last(qMin(end, longestTag));
    if (before.endsWith(u' '))
        before.chop(1);
    const qsizetype open = before.lastIndexOf(u'<');
    return open < 0 ? QStringView() : before.sliced(open + 1);
}

/// Whether the tool that wrote @p text shortens empty fields; "/>" alone may stand in an author's text.
bool hasShortForms(QStringView text)
{
    for (qsizetype at = text.indexOf(u"/>"); at >= 0; at = text.indexOf(u"/>", at + 2)) {
        if (fieldOfElement(tagBefore(text, at)))
            return true;
    }
    return false;
}

/// An element around a content, named so that no end tag in it closes it.
const QString &wrapper()
{
    static const QString name = u"content-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces);
    return name;
}

QString wrapped(QStringView content)
{
    return startTag(wrapper()) + content + endTag(wrapper());
}

/// @p content with an end tag to every element, and markup for what is not to be read as such; as it stands
/// where that leaves nothing of it. Only whitespace, with which other tools lay empty elements out, is
/// nothing.
QString serialisedContent(QStringView content)
{
    if (content.trimmed().isEmpty())
        return {};
    const QString element = TolerantXml(wrapped(content)).serialised();
    const QString inside = element.sliced(startTag(wrapper()).size()).chopped(endTag(wrapper()).size());
    return inside.isEmpty() ? content.toString() : inside;
}

/// Whether a start tag that is never closed may be meant as one in what we wrote ourselves; in any other an
/// author's text stands in angle brackets. Other tools write markup of their own into their documents.
bool isElementName(QByteArrayView name)
{
    return name == wrapper().toUtf8() || !padTag(QString::fromUtf8(name)).isNull();
}

} // namespace

PadDocument::Source::Source(const QString &text)
    : utf8(text.toUtf8()), elements(utf8), hasShortForms(quillon::hasShortForms(text))
{
}

PadDocument::PadDocument(QString text) : m_text(std::move(text)), m_written(writtenContents(m_text)) {}

PadDocument::PadDocument(const QByteArray &bytes) : PadDocument(decodedXmlText(bytes)) {}

PadDocument::PadDocument(PadDocument &&) noexcept = default;
PadDocument::~PadDocument() = default;

const TolerantXml &PadDocument::xml() const
{
    if (!m_xml)
        m_xml.emplace(m_text, m_written ? isElementName : nullptr);
    return *m_xml;
}

bool PadDocument::holds(const PadField &field) const
{
    return m_written || xml().count(field.element) > 0;
}

std::optional<QString> PadDocument::value(const PadField &field) const
{
    if (!m_written)
        return xml().first(field.element);
    const IsElementName names = field.kind == FieldKind::Text ? isElementName : nullptr;
    return TolerantXml(wrapped((*m_written)[size_t(field.id)]), names).first(wrapper());
}

std::optional<QString> PadDocument::cutOut(const PadField &field) const
{
    if (!holds(field))
        return std::nullopt;
    const QString content = sourceOf(field);
    if (m_written || !source().hasShortForms)
        return content;
    const QString serialised = serialisedContent(content);
    return serialised.left(serialised.indexOf(endTag(field.element)));
}

QString PadDocument::sourceOf(const PadField &field) const
{
    return m_written ? writtenContent(field).toString()
                     : QString::fromUtf8(source().elements.text(field.element.toUtf8()));
}

const PadDocument::Source &PadDocument::source() const
{
    if (!m_source)
        m_source = std::make_unique<Source>(m_text);
    return *m_source;
}

/// Where in text() the element begins whose value counts of all that are named @p tag.
std::optional<qsizetype> PadDocument::placeOf(QStringView tag) const
{
    const auto place = source().elements.place(tag.toUtf8());
    return place ? std::optional(QString::fromUtf8(source().utf8.first(place->begin)).size()) : std::nullopt;
}

std::optional<PadDocument::Position> PadDocument::position(const PadField &field) const
{
    std::optional<qsizetype> at;
    if (m_written)
        at = writtenContent(field).data() - m_text.constData() - startTag(field.element).size();
    else
        at = placeOf(field.element);
    for (QStringView groups = field.group; !at && !groups.isEmpty();
         groups = groups.first(qMax<qsizetype>(groups.lastIndexOf(u'/'), 0)))
        at = placeOf(groups.sliced(groups.lastIndexOf(u'/') + 1));
    if (!at)
        return std::nullopt;
    const QStringView before = QStringView(m_text).first(*at);
    return Position{before.count(u'\n') + 1, *at - before.lastIndexOf(u'\n')};
}

} // namespace quillon
