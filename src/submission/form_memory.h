#pragma once

#include "platform/result.h"
#include "submission/form_matching.h"

/// What the author has confirmed of the forms of a site, in the journal.
namespace quillon::form_memory {

/// What is known of @p site, oldest first. Rows that nobody understands are passed over.
Result<QList<form_matching::Remembered>> of(const QString &site);

/// Remembers @p fields, with whatever else is known of @p site.
Result<> remember(const QString &site, const QList<form_matching::Remembered> &fields);

} // namespace quillon::form_memory
