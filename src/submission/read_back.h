#pragma once

#include <QString>
#include <QVariant>

#include <optional>

/// What a field of a page holds after something was put into it.
namespace quillon {

/// A field before and after, as a script of ours tells it.
struct FieldReading
{
    QString type; ///< "rich", or of an input its type in HTML, such as "textarea", "date".
    QString before;
    QString after;
    int start = -1; ///< Of what was selected in before; -1 where that is not known.
    int end = -1;
    bool isUnintelligible = false; ///< The field shows something else, which it does not understand.
};

/// What the script's @p answer tells; none when the field could not be read, or is too long for it.
std::optional<FieldReading> fieldReading(const QVariant &answer);

/// What stands in the field now, in one line for the author, where a reader would expect something else after
/// @p text was put in; empty where all is well. Line ends that a field does not know, and the ways to write
/// one number or one date, make no difference.
QString readBackNotice(const FieldReading &reading, const QString &text);

} // namespace quillon
