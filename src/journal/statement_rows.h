#pragma once

#include "journal/database.h"

#include <QList>

namespace quillon {

/// The rows of @p statement, each made into a value by @p take; the error of @p statement or of a step.
template<typename Value, typename Take>
Result<QList<Value>> statementRows(Result<Statement> statement, const Take &take)
{
    if (!statement)
        return statement.error();
    QList<Value> values;
    for (;;) {
        const Result<bool> hasRow = statement->next();
        if (!hasRow)
            return hasRow.error();
        if (!*hasRow)
            return values;
        values.append(take(*statement));
    }
}

} // namespace quillon
