#include "pad/pad_form.h"

#include "pad/file_size.h"
#include "pad/vocabularies.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

Control *newControl(const PadField &field, QObject *parent)
{
    const QString name = field.control.toString();
    switch (field.kind) {
    case FieldKind::PopUp:
        return new PopUpControl(name, parent);
    case FieldKind::CheckBox:
        return new CheckBoxControl(name, parent);
    case FieldKind::CheckList:
        return new CheckListControl(name, parent);
    case FieldKind::MultiLine:
        return new TextControl(name, parent, TextControl::Lines::Several);
    case FieldKind::Text:
    case FieldKind::Computed:
        break;
    }
    return new TextControl(name, parent);
}

} // namespace

PadForm::PadForm(QObject *parent) : QObject(parent)
{
    for (const PadField &field : padFields)
        m_controls[size_t(field.id)] = newControl(field, this);
    // A date has one caption over its three fields.
    control(FieldId::releaseDateMonth).shareCaption(control(FieldId::releaseDateDay));
    control(FieldId::releaseDateYear).shareCaption(control(FieldId::releaseDateDay));
    control(FieldId::expireDateMonth).shareCaption(control(FieldId::expireDateDay));
    control(FieldId::expireDateYear).shareCaption(control(FieldId::expireDateDay));
    for (const PadField &field : fields::checkLists())
        checkList(field.id).setEntries(vocabulary::of(field.id));
    file_size::showInitial(*this);
    populatePopUpButtons();
}

QString PadForm::value(FieldId field) const
{
    switch (padField(field).kind) {
    case FieldKind::PopUp:
        return popUp(field).title();
    case FieldKind::CheckBox:
        return checkBox(field).isOn() ? u"Y"_s : u"N"_s;
    case FieldKind::CheckList:
        return checkList(field).tickedEntries().join(u',');
    case FieldKind::Computed:
        return file_size::withoutUnit(text(field).text());
    case FieldKind::Text:
    case FieldKind::MultiLine:
        break;
    }
    return text(field).text();
}

void PadForm::setValue(FieldId field, const QString &value)
{
    switch (padField(field).kind) {
    case FieldKind::PopUp:
        return popUp(field).setTitle(value);
    case FieldKind::CheckBox:
        return checkBox(field).setOn(value == u"Y");
    case FieldKind::CheckList: {
        CheckListControl &list = checkList(field);
        const QStringList entries = value.split(u',');
        for (qsizetype row = 0; row < list.entries().size(); ++row)
            list.setTicked(row, entries.contains(list.entries()[row]));
        return;
    }
    case FieldKind::Computed:
        return text(field).setText(value + (field == FieldId::programSizeKB ? u" KB" : u" MB"));
    case FieldKind::Text:
    case FieldKind::MultiLine:
        break;
    }
    text(field).setText(value);
}

void PadForm::clear()
{
    for (const PadField &field : padFields)
        setValue(field.id, {});
    file_size::showInitial(*this);
}

void PadForm::populatePopUpButtons()
{
    for (const PadField &field : fields::popUps())
        popUp(field.id).setItems(QStringList{QString()} + vocabulary::of(field.id));
}

const QStringList &PadForm::mwqnCheckedLanguage() const
{
    return checkList(FieldId::languageTable).states();
}

const QStringList &PadForm::mwqnCheckedOS() const
{
    return checkList(FieldId::osTable).states();
}

} // namespace quillon
