#pragma once

#include "pad/field_catalogue.h"
#include "platform/result.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

/// What differs between what was sent to a site and what the title says now.
namespace quillon::changed_fields {

/// The fields of which the two PAD files hold other values. The computed sizes are left out: they follow the
/// size in bytes.
QList<FieldId> between(const QByteArray &sent, const QByteArray &now);

/// What @p fields are called in a sentence; parts of a date or of a price are named as one.
QStringList names(const QList<FieldId> &fields);

/// The fields of the stored PAD file of @p title that have changed since it was last sent to @p site; none
/// when it is not known what was sent.
Result<std::optional<QList<FieldId>>> sinceSent(const QString &title, const QString &site);

} // namespace quillon::changed_fields
