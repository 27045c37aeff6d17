#include "pad/merged_document.h"

#include "pad/layout.h"
#include "pad/pad_document.h"
#include "platform/text_decoding.h"
#include "platform/xml_escaping.h"
#include "platform/xml_source.h"

#include <QCoreApplication>
#include <QStringConverter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class MergedDocumentText
{
    Q_DECLARE_TR_FUNCTIONS(MergedDocument)
};

using LayoutPlace = std::span<const LayoutLine>::iterator;

constexpr QStringView descriptions = u"Program_Descriptions";

/// A stretch of bytes.
struct Stretch
{
    qsizetype begin = 0;
    qsizetype end = 0;
};

/// The bytes of a document in which markup is ASCII, and how texts are written into it. Encodings in which a
/// character of ASCII takes several bytes are worked on as UTF-8.
class EncodedXml
{
public:
    explicit EncodedXml(const QByteArray &bytes) : m_mark(byteOrderMark(bytes))
    {
        auto [text, encoding] = decodedXml(bytes);
        m_encoding = std::move(encoding);
        m_isWide = m_encoding.startsWith("UTF-16") || m_encoding.startsWith("UTF-32");
        body = m_isWide ? text.toUtf8() : bytes.sliced(m_mark.size());
    }

    /// The whole, in its own encoding.
    [[nodiscard]] QByteArray bytes() const
    {
        return m_mark + (m_isWide ? QStringEncoder(m_encoding.constData())(QString::fromUtf8(body)) : body);
    }

    /// @p text in the document's encoding; what that does not know as a reference.
    [[nodiscard]] QByteArray encoded(const QString &text) const
    {
        if (m_isWide || m_encoding == "UTF-8")
            return text.toUtf8();
        // Documents that say Latin-1 are read as its Windows extension, of which other readers know nothing.
        const char *const name = m_encoding == "windows-1252" ? "ISO-8859-1" : m_encoding.constData();
        const auto inEncoding = [name](const QString &each) {
            QByteArray bytes = QStringEncoder(name)(each);
            return QString(QStringDecoder(name)(bytes)) == each ? std::optional(bytes) : std::nullopt;
        };
        if (auto whole = inEncoding(text))
            return *whole;
        QByteArray result;
        for (const char32_t character : text.toUcs4()) {
            const auto bytes = inEncoding(QString::fromUcs4(&character, 1));
            result += bytes ? *bytes : "&#" + QByteArray::number(quint32(character)) + ';';
        }
        return result;
    }

    QByteArray body; ///< Without the byte-order mark.

private:
    static QByteArray byteOrderMark(const QByteArray &bytes)
    {
        using namespace std::literals;
        for (const auto mark :
             {"\xEF\xBB\xBF"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv, "\xFF\xFE"sv, "\xFE\xFF"sv}) {
            if (bytes.startsWith(QByteArrayView(mark)))
                return bytes.first(qsizetype(mark.size()));
        }
        return {};
    }

    QByteArray m_mark;
    QByteArray m_encoding;
    bool m_isWide = false;
};

/// Puts values into a document one after the other.
class Merger
{
public:
    explicit Merger(const QByteArray &original)
        : m_document(original), m_lineEnd(m_document.body.contains("\r\n") ? u"\r\n"_s : u"\n"_s)
    {
    }

    /// The content that @p value became in its element; none where the document has no place for it.
    std::optional<QString> lay(LayoutPlace line, const PadField &field, const QString &value)
    {
        const QString text = QString(value).replace(u"\r\n"_s, u"\n"_s).replace(u'\n', m_lineEnd);
        const auto stretch = contentOf(field);
        const QString content = escaped(field, text, stretch.value_or(Stretch{}));
        if (stretch)
            replace(*stretch, content);
        const bool isLaid = stretch || add(line, startTag(line->tag) + content + endTag(line->tag));
        return isLaid ? std::optional(content) : std::nullopt;
    }

    [[nodiscard]] QByteArray bytes() const { return m_document.bytes(); }

private:
    /// Where the field's value is read, as PadDocument reads it; an element in one tag gets an end tag.
    std::optional<Stretch> contentOf(const PadField &field)
    {
        QByteArray &body = m_document.body;
        // Each byte is a letter here, so that places in the text are places of bytes.
        const PadDocument document(QString::fromLatin1(body));
        if (document.isWritten()) {
            const QStringView content = document.writtenContent(field);
            const qsizetype begin = content.data() - document.text().constData();
            return content.isNull() ? std::nullopt : std::optional(Stretch{begin, begin + content.size()});
        }
        const XmlSource source(body);
        const auto place = source.place(field.element.toUtf8());
        if (!place)
            return std::nullopt;
        const QByteArrayView cut =
            field.kind == FieldKind::MultiLine ? source.text(field.element.toUtf8()) : QByteArrayView();
        if (!cut.isNull())
            return Stretch{cut.begin() - body.constData(), cut.end() - body.constData()};
        return place->isOneTag ? opened(*place, field.element)
                               : Stretch{place->contentBegin, place->contentEnd};
    }

    /// Makes two tags of one.
    Stretch opened(const XmlSource::Place &place, QStringView tag)
    {
        qsizetype end = m_document.body.lastIndexOf('/', place.end - 1);
        while (isXmlBlank(m_document.body[end - 1]))
            --end;
        m_document.body.replace(end, place.end - end, QString(u'>' + endTag(tag)).toUtf8());
        return {end + 1, end + 1};
    }

    [[nodiscard]] QString escaped(const PadField &field, const QString &text, const Stretch &old) const
    {
        if (field.kind != FieldKind::MultiLine)
            return escapedXml(text);
        const bool hasMarkup = m_document.body.sliced(old.begin, old.end - old.begin).contains('<');
        return hasMarkup && isWellFormedContent(text) ? text : escapedXmlBesidesReferences(text);
    }

    void replace(const Stretch &stretch, const QString &text)
    {
        m_document.body.replace(stretch.begin, stretch.end - stretch.begin, m_document.encoded(text));
    }

    /// The line break and the blanks before @p at; empty where something else stands in that line.
    [[nodiscard]] QString indentation(qsizetype at) const
    {
        const QByteArray &body = m_document.body;
        qsizetype begin = at;
        while (begin > 0 && (body[begin - 1] == ' ' || body[begin - 1] == '\t'))
            --begin;
        if (begin == 0 || body[begin - 1] != '\n')
            return {};
        return m_lineEnd + QString::fromLatin1(body.sliced(begin, at - begin));
    }

    /// Adds @p element, which the layout has at @p line: after the nearest element before it that is there,
    /// else before the nearest one after it, else into its group, which is made if need be.
    bool add(LayoutPlace line, const QString &element)
    {
        LayoutPlace group = line;
        while (group != padLayout.begin() && (--group)->depth >= line->depth) {
        }
        const bool isTop = line->depth == 1;
        const QStringView groupTag = isTop ? padRootElement : group->tag;
        const XmlSource source(m_document.body);
        if (const auto place = siblingBefore(source, line, groupTag))
            replace({place->end, place->end}, indentation(place->begin) + element);
        else if (const auto next = siblingAfter(source, line, groupTag))
            replace({next->begin, next->begin}, element + indentation(next->begin));
        else if (const auto around = source.place(groupTag.toUtf8()))
            addFirst(*around, groupTag, element);
        else
            return !isTop && add(group, startTag(groupTag) + element + endTag(groupTag));
        return true;
    }

    /// The nearest element that the layout has before @p line, in the same group, and that is there.
    static std::optional<XmlSource::Place> siblingBefore(const XmlSource &source, LayoutPlace line,
                                                         QStringView groupTag)
    {
        std::optional<XmlSource::Place> place;
        for (LayoutPlace each = line; !place && each != padLayout.begin() && (--each)->depth >= line->depth;)
            place = each->depth == line->depth ? placeInside(source, each->tag, groupTag) : std::nullopt;
        return place;
    }

    static std::optional<XmlSource::Place> siblingAfter(const XmlSource &source, LayoutPlace line,
                                                        QStringView groupTag)
    {
        std::optional<XmlSource::Place> place;
        for (LayoutPlace each = line; !place && ++each != padLayout.end() && each->depth >= line->depth;)
            place = each->depth == line->depth ? placeInside(source, each->tag, groupTag) : std::nullopt;
        return place;
    }

    static std::optional<XmlSource::Place> placeInside(const XmlSource &source, QStringView tag,
                                                       QStringView groupTag)
    {
        // Of several languages any will do.
        const auto around = source.place((groupTag == u"English" ? descriptions : groupTag).toUtf8());
        const auto place = source.place(tag.toUtf8());
        const bool isInside = place && around && place->begin > around->begin && place->end <= around->end;
        return isInside ? place : std::nullopt;
    }

    void addFirst(const XmlSource::Place &place, QStringView groupTag, const QString &element)
    {
        const QString blanks = indentation(place.begin);
        const Stretch content =
            place.isOneTag ? opened(place, groupTag) : Stretch{place.contentBegin, place.contentEnd};
        const bool isEmpty = content.begin == content.end;
        const QString before = blanks.isEmpty() ? blanks : QString(blanks + u'\t');
        replace({content.begin, content.begin}, before + element + (isEmpty ? blanks : QString()));
    }

    EncodedXml m_document;
    QString m_lineEnd;
};

/// The content that was laid into each element.
using Contents = std::array<std::optional<QString>, fieldCount>;

/// The value that every reader sees in an element of this content.
QString valueOf(const QString &content)
{
    return TolerantXml(u"<x>"_s + content + u"</x>").first(u"x").value_or(QString());
}

Error cannotBeLaid(QStringView element)
{
    return {.kind = Error::Kind::Unintelligible,
            .reason =
                MergedDocumentText::tr("the original is written in such a way that %1 cannot be put into it")
                    .arg(element)};
}

/// Whether each value in @p merged is the one that was laid over it, or else the original's.
Result<> verified(const QByteArray &original, const QByteArray &merged, const Contents &laid)
{
    const PadDocument before(original);
    const PadDocument after(merged);
    for (const PadField &field : padFields) {
        const auto &content = laid[size_t(field.id)];
        if (after.value(field) != (content ? std::optional(valueOf(*content)) : before.value(field)))
            return cannotBeLaid(field.element);
    }
    return {};
}

} // namespace

Result<QByteArray> mergedDocument(const QByteArray &original, const FieldValues &values)
{
    if (std::ranges::none_of(values, [](const auto &value) { return value.has_value(); }))
        return original;
    Merger merger(original);
    if (merger.bytes() != original)
        return Error{.kind = Error::Kind::Unintelligible,
                     .reason =
                         MergedDocumentText::tr("the original holds bytes that are no text in its encoding")};
    Contents laid;
    for (LayoutPlace line = padLayout.begin(); line != padLayout.end(); ++line) {
        const auto field = line->kind == LayoutLine::Element ? fieldOfElement(line->tag) : std::nullopt;
        const auto &value = field ? values[size_t(*field)] : std::nullopt;
        if (!value)
            continue;
        laid[size_t(*field)] = merger.lay(line, padField(*field), *value);
        if (!laid[size_t(*field)])
            return cannotBeLaid(line->tag);
    }
    QByteArray merged = merger.bytes();
    if (const Result<> sound = verified(original, merged, laid); !sound)
        return sound.error();
    return merged;
}

} // namespace quillon
