#include "pad/pad_document.h"

#include "pad/layout.h"
#include "platform/text_decoding.h"
#include "platform/xml_source.h"

#include <QUuid>

#include <algorithm>
#include <vector>

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

/// What is looked for at a line of the layout; made once, since each document is compared with all of it.
struct LineTexts
{
    QString start;
    QString close; ///< The end tag; with this and the rest empty where the line is no element.
    QString end;   ///< The end tag, and what the line that follows begins with.
    std::optional<FieldId> field;
};

const std::vector<LineTexts> &layoutTexts()
{
    static const std::vector<LineTexts> all = [] {
        std::vector<LineTexts> texts;
        texts.reserve(padLayout.size());
        for (auto line = padLayout.begin(); line != padLayout.end(); ++line) {
            LineTexts &added = texts.emplace_back(LineTexts{lineStart(*line), {}, {}, {}});
            if (line->kind != LayoutLine::Element)
                continue;
            added.close = endTag(line->tag);
            added.end =
                added.close + u'\n' + (line + 1 == padLayout.end() ? layoutClosing() : lineStart(line[1]));
            added.field = fieldOfElement(line->tag);
        }
        return texts;
    }();
    return all;
}

/// The contents of @p text if it is laid out as the writer does it; none otherwise.
///
/// There each element is found by its line and the line that follows it, so that no value, whatever it holds,
/// is mistaken for another element. A value ends at the first end tag of its element all the same.
std::optional<FieldContents> writtenContents(QStringView text)
{
    static const QString opening = layoutOpening();
    FieldContents contents;
    if (!text.startsWith(opening))
        return std::nullopt;
    qsizetype at = opening.size();
    for (const LineTexts &line : layoutTexts()) {
        if (!text.sliced(at).startsWith(line.start))
            return std::nullopt;
        at += line.start.size();
        if (!line.close.isEmpty()) {
            const qsizetype end = text.indexOf(line.end, at);
            if (end < 0)
                return std::nullopt;
            if (line.field)
                contents[size_t(*line.field)] = text.sliced(at, text.indexOf(line.close, at) - at);
            at = end + line.close.size();
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
    // A text full of "/>" is not searched from its beginning each time.
    static constexpr qsizetype longestTag = 64;
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

/// Whether @p content is its own value: no markup, and nothing that the way through UTF-8 may change.
bool isPlainText(QStringView content)
{
    return std::all_of(content.begin(), content.end(), [](QChar unit) {
        return (unit >= u' ' && unit <= u'~' && unit != u'<' && unit != u'&') || unit == u'\n' ||
               unit == u'\t';
    });
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
    const QStringView content = writtenContent(field);
    if (isPlainText(content)) // As most are; without a parser.
        return content.trimmed().isEmpty() ? QString() : content.toString();
    const IsElementName names = field.kind == FieldKind::Text ? isElementName : nullptr;
    return TolerantXml(wrapped(content), names).first(wrapper());
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
                     : exactText(source().elements.text(field.element.toUtf8()));
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
