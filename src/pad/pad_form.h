#pragma once

#include "controls/controls.h"
#include "pad/field_catalogue.h"

#include <array>

namespace quillon {

/**
 * One control for each field of the catalogue: the editor without a screen.
 *
 * Asking for a control under a kind that its field does not have is a fault of the program and asserts.
 */
class PadForm : public QObject
{
    Q_OBJECT
public:
    explicit PadForm(QObject *parent = nullptr);

    [[nodiscard]] Control &control(FieldId field) const { return *m_controls[size_t(field)]; }
    /// A single-line, multi-line or computed text.
    [[nodiscard]] TextControl &text(FieldId field) const { return as<TextControl>(field); }
    [[nodiscard]] PopUpControl &popUp(FieldId field) const { return as<PopUpControl>(field); }
    [[nodiscard]] CheckBoxControl &checkBox(FieldId field) const { return as<CheckBoxControl>(field); }
    [[nodiscard]] CheckListControl &checkList(FieldId field) const { return as<CheckListControl>(field); }

    /// The value as it goes into the PAD file; sizes without their unit.
    [[nodiscard]] QString value(FieldId field) const;

    /// Makes @p value, as value() gives it, the field's: no item for a pop-up that has none of that name, and
    /// in a check list nothing but entries that it has.
    void setValue(FieldId field, const QString &value);

    /// Makes every field hold what it does in a new form.
    void clear();

    /// Fills the six pop-ups from their vocabularies, the empty item first and chosen.
    void populatePopUpButtons();

    /// One "1" or "0" for each language, and for each operating system.
    [[nodiscard]] const QStringList &mwqnCheckedLanguage() const;
    [[nodiscard]] const QStringList &mwqnCheckedOS() const;

private:
    template<typename Kind>
    [[nodiscard]] Kind &as(FieldId field) const
    {
        auto *control = qobject_cast<Kind *>(m_controls[size_t(field)]);
        Q_ASSERT(control);
        return *control;
    }

    std::array<Control *, fieldCount> m_controls{};
};

} // namespace quillon
