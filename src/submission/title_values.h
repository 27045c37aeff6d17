#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace quillon {

/// What of a title may be typed into a form: the value of a PAD field, or several of them as forms ask for.
struct TitleValue
{
    /// What it looks like; fields of a page say which of them they take.
    enum class Kind
    {
        Text,
        Number,
        Date, ///< As year-month-day.
        Email,
        Url,
        Phone
    };

    QString id;      ///< The name of the field's control; of a date that of its year.
    QString caption; ///< What the author calls it.
    Kind kind = Kind::Text;
    QString text = {}; ///< Empty where the title has none.

    /// The text as people read it: a date in their short style.
    [[nodiscard]] QString shown() const;
};

/// All values of the title whose stored PAD document is @p pad, also those that are empty, in the order of
/// the editor.
QList<TitleValue> titleValues(const QByteArray &pad);

} // namespace quillon
