#pragma once

#include "changes/change_plan.h"

/// What a new title may take over from another: who makes, sells and supports it.
namespace quillon::taking_over {

/// Whether the fields that can be taken over are all empty in @p values.
bool isBare(const FormValues &values);

/// The title whose PAD file was stored last, of all but @p title and the example, as far as it can be read
/// and is not bare; none without one.
std::optional<TitleState> lastTitle(const QString &title);

/// What @p title, whose fields hold @p present, takes over from @p from: its company, author, contact and
/// support.
QList<Change> changes(const FormValues &present, const TitleState &from);

/// What the author is told of it, also in the list of changes.
QString label(const TitleState &from);

} // namespace quillon::taking_over
