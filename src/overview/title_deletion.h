#pragma once

#include "journal/deleted_items.h"

namespace quillon::title_operations {

/// Deletes the title; what its folder holds is kept for deleted_items::keptDays. Where that fails, which has
/// been told, the title is deleted all the same.
Result<> deleteTitle(const QString &name);

/// Brings a deleted title back under @p name, its folder whole and with the bytes that it had. Refused where
/// the name is not free.
Result<> undeleteTitle(const deleted_items::Item &title, const QString &name);

} // namespace quillon::title_operations
