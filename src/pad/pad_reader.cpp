#include "pad/pad_reader.h"

#include "pad/file_size.h"
#include "pad/layout.h"
#include "pad/pad_form.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"

#include <QUuid>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// What stands between the tags of each field's element; null where there is none.
using Contents = std::array<QStringView, fieldCount>;

/// The contents of @p text if it is laid out as the writer does it; none otherwise.
///
/// There each element is found by its line and the line that follows it, so that no value, whatever it holds,
/// is mistaken for another element. A value ends at the first end tag of its element all the same.
std::optional<Contents> writtenContents(QStringView text)
{
    Contents contents;
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

/// Whether the tool that wrote @p text shortens empty fields; "/>" alone may stand in an author's text.
bool hasShortForms(const QString &text)
{
    return text.contains(u"/>"_s) &&
           std::any_of(padFields.begin(), padFields.end(), [&](const PadField &field) {
               const QString open = u'<' + field.element;
               return text.contains(open + u"/>") || text.contains(open + u" />");
           });
}

/// An element around a content, named so that no end tag in it closes it.
const QString &wrapper()
{
    static const QString name = u"content-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces);
    return name;
}

TolerantXml parsedContent(QStringView content)
{
    return TolerantXml(QString(startTag(wrapper()) + content + endTag(wrapper())));
}

/// @p content with an end tag to every element, and markup for what is not to be read as such; as it stands
/// where that leaves nothing of it. Only whitespace, with which other tools lay empty elements out, is
/// nothing.
QString serialisedContent(QStringView content)
{
    if (content.trimmed().isEmpty())
        return {};
    const QString element = parsedContent(content).serialised();
    const QString inside = element.sliced(startTag(wrapper()).size()).chopped(endTag(wrapper()).size());
    return inside.isEmpty() ? content.toString() : inside;
}

/// A document in its two views: parsed, and as it stands, its elements then with an end tag each.
class PadSource
{
public:
    explicit PadSource(QString text) : m_text(std::move(text)), m_written(writtenContents(m_text))
    {
        if (m_written)
            return;
        m_xml.emplace(m_text);
        m_utf8 = m_text.toUtf8();
        m_hasShortForms = hasShortForms(m_text);
    }

    [[nodiscard]] bool holds(const PadField &field) const
    {
        return m_written || m_xml->count(field.element) > 0;
    }

    [[nodiscard]] std::optional<QString> value(const PadField &field) const
    {
        if (!m_written)
            return m_xml->first(field.element);
        return parsedContent((*m_written)[size_t(field.id)]).first(wrapper());
    }

    /// The text between the tags of the field's element, if there is one: the same element that value()
    /// reads.
    [[nodiscard]] std::optional<QString> cutOut(const PadField &field) const
    {
        if (m_written)
            return (*m_written)[size_t(field.id)].toString();
        if (!holds(field))
            return std::nullopt;
        const QString content = QString::fromUtf8(firstElementText(m_utf8, field.element.toUtf8()));
        if (!m_hasShortForms)
            return content;
        const QString serialised = serialisedContent(content);
        return serialised.left(serialised.indexOf(endTag(field.element)));
    }

private:
    QString m_text;
    std::optional<Contents> m_written; ///< Views of m_text; without them the other members hold something.
    std::optional<TolerantXml> m_xml;
    QByteArray m_utf8;
    bool m_hasShortForms = false;
};

void loadText(const PadSource &source, const PadField &field, PadForm &form)
{
    if (const auto value = source.value(field))
        form.text(field.id).setText(*value);
}

void loadProgramText(const PadSource &source, const PadField &field, PadForm &form)
{
    loadText(source, field, form);
    if (field.id == FieldId::sizeInBytes && !source.value(field).value_or(QString()).isEmpty())
        file_size::show(form);
}

void loadPopUp(const PadSource &source, const PadField &field, PadForm &form)
{
    if (const auto value = source.value(field))
        form.popUp(field.id).setTitle(*value);
}

void loadCheckBox(const PadSource &source, const PadField &field, PadForm &form)
{
    if (const auto value = source.value(field))
        form.checkBox(field.id).setOn(!value->isEmpty() && value->compare(u'N', Qt::CaseInsensitive) != 0);
}

void loadMultiLine(const PadSource &source, const PadField &field, PadForm &form)
{
    if (const auto text = source.cutOut(field))
        form.text(field.id).setText(*text);
}

/// Ticks the values that the list holds; blanks around a value are part of it.
void loadCheckList(const PadSource &source, const PadField &field, PadForm &form)
{
    CheckListControl &list = form.checkList(field.id);
    const QStringList values = source.value(field).value_or(QString()).split(u',');
    for (const QString &value : values)
        list.setTicked(list.entries().indexOf(value), true);
}

/// A stretch of the catalogue and how it is loaded.
struct Step
{
    std::span<const PadField> fields;
    void (*load)(const PadSource &, const PadField &, PadForm &);
};

} // namespace

bool loadPADData(const QByteArray &stored, PadForm &form)
{
    for (const PadField &field : fields::checkLists())
        form.checkList(field.id).untickAll();

    const Step steps[] = {
        {fields::company(), loadText},
        {fields::program(), loadProgramText},
        {fields::popUps(), loadPopUp},
        {fields::between(FieldId::expireCheckBox, FieldId::expireCheckBox), loadCheckBox},
        {fields::programTexts(), loadMultiLine},
        {fields::checkLists(), loadCheckList},
        {fields::descriptions(), loadMultiLine},
        {fields::web(), loadText},
        {fields::permissions(), loadMultiLine},
    };
    const PadSource source(decodedXmlText(stored));
    for (const Step &step : steps) {
        for (const PadField &field : step.fields)
            step.load(source, field, form);
    }
    return std::any_of(padFields.begin(), padFields.end(),
                       [&source](const PadField &field) { return source.holds(field); });
}

} // namespace quillon
