#pragma once

#include "controls/controls.h"

#include <span>

namespace quillon {

/// The smallest and the largest length that is allowed, in UTF-16 units.
struct Bounds
{
    int min = 0;
    int max = 0;

    [[nodiscard]] constexpr bool hold(qsizetype length) const { return min <= length && length <= max; }
};

/// The lengths of an e-mail address's three parts: local@domain.extension.
struct EmailBounds
{
    Bounds local;
    Bounds domain;
    Bounds extension; ///< Without its leading point.
};

/// Texts that live for ever, as a table of rules holds them.
using Words = std::span<const QStringView>;

/**
 * Checks, trims and colours the text of one control.
 *
 * Nothing is kept between calls, nothing is stored and nothing fails: ranges that reach past the end of a
 * text are cut there. Single-line texts are coloured only while they are edited (TextControl::isEditing). All
 * lengths are UTF-16 units. A check that returns a counter returns "    LENGTH/LIMIT" for the caller's hint.
 */
class UniversalConverters
{
public:
    UniversalConverters() = delete;

    /// Colours a single-line text: too short is red, of a text that is too long what is beyond the limit.
    static QString characterCountField(Bounds bounds, TextControl &field);

    /// The same for a text of several lines, its hint and its caption; an empty one is always acceptable.
    static QString characterCountView(Bounds bounds, TextControl &view);

    /// The colours that the two counting checks give a text of @p length units.
    static TextColours lengthColours(qsizetype length, Bounds bounds);

    /// Colours a web address by its length and its ending. The length of each of @p prefixes that the text
    /// holds anywhere, in any case, is allowed on top of @p bounds. With @p endings the text has to end with
    /// one of them, in just this case.
    static QString urlCheckingField(TextControl &field, Bounds bounds, Words prefixes, Words endings);

    /// Removes the blanks from an e-mail address and colours the parts that are too long or too short;
    /// without an "@" field, hint and caption turn red. Whether all three parts are within bounds.
    static bool emailCheck(const EmailBounds &bounds, TextControl &field);

    /// The verdict of emailCheck on @p address, which holds no blanks, without touching any control.
    static bool isEmailAddress(const EmailBounds &bounds, QStringView address);

    /// Removes the letters from a phone number and colours what is beyond the limit. Whether the leading run
    /// of digits and punctuation is empty or within bounds.
    static bool phoneNumberCheck(Bounds bounds, TextControl &field);

    /// Keeps the leading digits, at most @p maxLen.
    static void numbersOnly(TextControl &field, int maxLen);

    /// Keeps the leading digits and points, at most @p maxLen; there may be several points.
    static void decimalNumber(TextControl &field, int maxLen);

    /// Shows the last of the field's integers with as many digits as @p maxNumber has, 0 when there is none.
    static void inputNumberLengthCheck(TextControl &field, int maxNumber);

    /// Shows in @p field the leading letters and @p extra characters of @p text. @p extra stands inside a
    /// character class of a pattern, where "-" and "]" have their meaning.
    static void atzWithSpecialChars(QStringView extra, const QString &text, TextControl &field);

    /// Colours each occurrence of @p character.
    static void setTextColorChars(Colour colour, QChar character, TextControl &field);
    static void setTextColorAll(Colour colour, TextControl &field);
    /// Colours from @p start to the end.
    static void setTextColorFromPoint(qsizetype start, Colour colour, TextControl &field);
    static void setTextColorToPoint(qsizetype length, qsizetype start, Colour colour, TextControl &field);

    /// For a text that was loaded, not typed: red when it is too short; when it is too long, red beyond the
    /// limit, and @p hint is shown with the counter. A text that says that something should not be empty is
    /// left alone.
    static void fieldLoadValidator(TextControl &field, Bounds bounds, const QString &hint);

    /// As emailCheck for an address that was loaded: it is not rewritten, hint and caption are left alone,
    /// and so is the text "Email Should Not Be Empty", which is no address.
    static bool emailFieldLoadValidator(TextControl &field, const EmailBounds &bounds);

    /// As fieldLoadValidator for several lines; one that is too short is not marked.
    static void viewLoadValidator(TextControl &view, Bounds bounds, const QString &hint);
};

} // namespace quillon
