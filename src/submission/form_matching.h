#pragma once

#include "submission/page_form.h"
#include "submission/title_values.h"

#include <QList>
#include <QString>

/// Which value of a title belongs into which field of a page's form.
namespace quillon::form_matching {

/// A field that the author once confirmed, and what belongs into it.
struct Remembered
{
    FieldSigns signs;
    QString value; ///< The id of a title's value.
};

/// What is proposed for one field.
struct Proposal
{
    qsizetype field = 0;       ///< Its place among the page's fields.
    QString value = {};        ///< The id of a title's value.
    QString text = {};         ///< What would be typed; of a choice the text of its option.
    QString why = {};          ///< The signs that speak for it, for the author.
    int score = 0;             ///< How much speaks for it; only the order means anything.
    bool isRemembered = false; ///< The author has confirmed it before.
    bool isSure = false; ///< Enough speaks for it, nothing against it, and no other field wants the value.
};

/// At most one proposal for each of @p fields, in their order; none where too little speaks for any value, or
/// where the best one is empty, or cannot stand in the field. What @p remembered says of a field that has
/// enough of its signs goes before all other signs.
QList<Proposal> propose(const QList<PageField> &fields, const QList<TitleValue> &values,
                        const QList<Remembered> &remembered = {});

/// What would be typed into @p field for @p value; none when it cannot stand there.
std::optional<QString> fittingText(const PageField &field, const TitleValue &value);

} // namespace quillon::form_matching
