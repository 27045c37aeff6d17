#pragma once

#include "pad/field_catalogue.h"

#include <QList>
#include <QString>

/// What stands where on the editor's pages.
namespace quillon {

/// One line of a group: a field, or several side by side under the first one's caption.
struct FieldLine
{
    QStringView caption;
    FieldId field;
    int lines = 1;                      ///< Height of a multi-line text.
    std::optional<FieldId> second = {}; ///< Beside the field, such as the month beside the day.
    std::optional<FieldId> third = {};
};

/// Fields under a heading.
struct FieldGroup
{
    QStringView title;
    int column; ///< On its page, from the left.
    QList<FieldLine> fields;
    int width = 2; ///< Of its column, in proportion to the others.
};

/// The groups of the page @p label, in their order from top to bottom; none for a label that no page has.
const QList<FieldGroup> &groupsOnPage(QStringView label);

/// What a screen reader calls @p field: its caption, and for a part of a date which part.
QString accessibleNameOf(FieldId field);

} // namespace quillon
