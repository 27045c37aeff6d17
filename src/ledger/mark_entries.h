#pragma once

#include "store/summary_file.h"

/// How the ledger follows the marks.
namespace quillon::mark_entries {

/// Notes in the ledger what has become of the selected title's marks: that @p marked was sent, with the
/// stored PAD file as it is now, when the title is marked for it in @p after; and which marks of @p before
/// are gone.
/// @p marked is empty when a mark was taken away. What cannot be noted stands in the status bar.
void follow(const Summary &before, const Summary &after, const QString &marked);

} // namespace quillon::mark_entries
