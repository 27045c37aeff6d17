#pragma once

#include "journal/database.h"

#include <QList>
#include <QString>

/// What the author has confirmed of the fields in the forms of each site.
namespace quillon::form_fields {

struct Row
{
    QString signs;   ///< What the field is known by, as JSON.
    QString value;   ///< The id of the title's value that belongs into it.
    qint64 time = 0; ///< Milliseconds since 1970 (UTC); given by remember().
};

/// Adds @p rows to what is known of @p site. A row with the same signs takes the place of the one before;
/// beyond 500 of a site the oldest go.
Result<> remember(const QString &site, const QList<Row> &rows);

/// What is known of @p site, oldest first; empty also where nothing was ever remembered.
Result<QList<Row>> of(const QString &site);

/// Forgets all of @p site, and gives how much that was.
Result<qint64> forget(const QString &site);

/// Gives what is known of the site @p from to the site @p to.
Result<> renameSite(Database &database, const QString &from, const QString &to);

} // namespace quillon::form_fields
