#include "pad/pad_reader.h"

#include "pad/file_size.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

void loadText(const PadDocument &document, const PadField &field, PadForm &form)
{
    if (const auto value = document.value(field))
        form.text(field.id).setText(*value);
}

void loadProgramText(const PadDocument &document, const PadField &field, PadForm &form)
{
    loadText(document, field, form);
    if (field.id == FieldId::sizeInBytes && !document.value(field).value_or(QString()).isEmpty())
        file_size::show(form);
}

void loadPopUp(const PadDocument &document, const PadField &field, PadForm &form)
{
    if (const auto value = document.value(field))
        form.popUp(field.id).setTitle(*value);
}

void loadCheckBox(const PadDocument &document, const PadField &field, PadForm &form)
{
    if (const auto value = document.value(field))
        form.checkBox(field.id).setOn(!value->isEmpty() && value->compare(u'N', Qt::CaseInsensitive) != 0);
}

void loadMultiLine(const PadDocument &document, const PadField &field, PadForm &form)
{
    if (const auto text = document.cutOut(field))
        form.text(field.id).setText(*text);
}

/// Ticks the values that the list holds; blanks around a value are part of it.
void loadCheckList(const PadDocument &document, const PadField &field, PadForm &form)
{
    CheckListControl &list = form.checkList(field.id);
    const QString values = document.value(field).value_or(QString());
    for (const QStringView value : QStringTokenizer(values, u','))
        list.setTicked(list.entries().indexOf(value), true);
}

/// A stretch of the catalogue and how it is loaded.
struct Step
{
    std::span<const PadField> fields;
    void (*load)(const PadDocument &, const PadField &, PadForm &);
};

} // namespace

bool loadPADData(const PadDocument &document, PadForm &form)
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
    for (const Step &step : steps) {
        for (const PadField &field : step.fields)
            step.load(document, field, form);
    }
    return std::any_of(padFields.begin(), padFields.end(),
                       [&document](const PadField &field) { return document.holds(field); });
}

bool loadPADData(const QByteArray &stored, PadForm &form)
{
    return loadPADData(PadDocument(stored), form);
}

} // namespace quillon
