#pragma once

#include "pad/field_catalogue.h"
#include "platform/result.h"

#include <QBitArray>
#include <QByteArray>
#include <QLocale>
#include <QObject>
#include <QString>

#include <optional>
#include <span>

namespace quillon {

class Browser;

/// A button that pastes one field of the stored PAD file into a download site's form.
struct FieldCopyButton
{
    QStringView action;  ///< The button's name is this with "Button" after it.
    QStringView caption; ///< What the author reads on it.
    FieldId field;       ///< For a date, its year.

    /// The element whose value is pasted; a button can be used when it has one.
    [[nodiscard]] QStringView tag() const { return padField(field).element; }
    /// The label of the editor's page that the field is on.
    [[nodiscard]] QStringView page() const;
};

/// All buttons in the panel's order.
extern const std::span<const FieldCopyButton> fieldCopyButtons;

/// What @p button says, in the author's language.
QString captionOf(const FieldCopyButton &button);

/// The button whose action is named @p action, exactly; null without one.
const FieldCopyButton *fieldCopyButtonNamed(QStringView action);

/// What a press of @p button pastes from the stored PAD document @p pad; none when there is nothing to paste.
///
/// It is the text between the element's first tags as it stands, entities included; of a date, month, day and
/// year in the short style of @p locale, none when they are no date.
std::optional<QString> pasteText(const FieldCopyButton &button, const QByteArray &pad,
                                 const QLocale &locale = QLocale());

/**
 * The panel of buttons beside the browser: which can be used, which were pressed, and what a press does.
 *
 * Values are read from the selected title's stored PAD file at the moment of the press. A pressed button
 * stays on for the rest of the run, so that the author sees what has been pasted.
 */
class FieldCopyPanel : public QObject
{
    Q_OBJECT
public:
    /// @p browser takes what is pasted, and must outlive the panel.
    explicit FieldCopyPanel(Browser &browser, QObject *parent = nullptr);

    /// Lets exactly those buttons be used whose element has a value in the stored PAD file.
    void setPasteData();

    /// Turns the button at @p place of fieldCopyButtons on and has the browser paste its value, if there is
    /// one.
    void press(int place);

    /// Why setPasteData() could not read the file, if it is there.
    [[nodiscard]] const std::optional<Error> &readError() const { return m_readError; }
    [[nodiscard]] bool isEnabled(int place) const { return m_enabled.testBit(place); }
    [[nodiscard]] bool isOn(int place) const { return m_on.testBit(place); }

Q_SIGNALS:
    /// A button can be used, cannot be used, or is on, other than before.
    void changed();
    /// setPasteData() has read the file, which is @p pad, or why it could not.
    void valuesRead(const Result<QByteArray> &pad);
    /// Why a press has pasted nothing, in a sentence.
    void nothingPasted(const QString &reason);

private:
    Browser &m_browser;
    std::optional<Error> m_readError;
    QBitArray m_enabled;
    QBitArray m_on;
};

} // namespace quillon
