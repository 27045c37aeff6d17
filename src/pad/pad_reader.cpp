#include "pad/pad_reader.h"

#include "pad/file_size.h"
#include "pad/pad_form.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether the tool that wrote @p text shortens empty fields; "/>" alone may stand in an author's text.
bool hasShortForms(const QString &text)
{
    return text.contains(u"/>"_s) &&
           std::any_of(padFields.begin(), padFields.end(), [&](const PadField &field) {
               const QString open = u'<' + field.element;
               return text.contains(open + u"/>") || text.contains(open + u" />");
           });
}

/// A document in its two views: parsed, and as it stands, its elements then with an end tag each.
class PadSource
{
public:
    explicit PadSource(const QString &text)
        : m_xml(text), m_raw(text.toUtf8()), m_hasShortForms(hasShortForms(text))
    {
    }

    [[nodiscard]] bool holds(const PadField &field) const { return m_xml.count(field.element) > 0; }

    [[nodiscard]] std::optional<QString> value(const PadField &field) const
    {
        return m_xml.first(field.element);
    }

    /// The text between the tags of the field's element, if there is one: the same element that value()
    /// reads.
    [[nodiscard]] std::optional<QString> cutOut(const PadField &field) const
    {
        if (!holds(field))
            return std::nullopt;
        const QString open = u'<' + field.element + u'>';
        const QString close = u"</" + field.element + u'>';
        const QString element =
            m_hasShortForms ? m_xml.serialised(field.element) : source(field.element, open);
        if (!element.startsWith(open) || !element.endsWith(close))
            return QString();
        return element.sliced(open.size()).chopped(close.size());
    }

private:
    /// The element as it stands. Start tags of its name that follow one another belong to its text.
    [[nodiscard]] QString source(QStringView tag, const QString &open) const
    {
        const QByteArrayView element = firstElementSource(m_raw, tag.toUtf8());
        if (element.isEmpty())
            return {};
        const QByteArrayView before(m_raw.cbegin(), element.begin());
        const qsizetype neighbour = std::max<qsizetype>(before.lastIndexOf("</"), 0);
        const qsizetype start = before.indexOf(open.toUtf8(), neighbour);
        return QString::fromUtf8({start < 0 ? element.begin() : before.begin() + start, element.end()});
    }

    TolerantXml m_xml;
    QByteArray m_raw;
    bool m_hasShortForms;
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
