#pragma once

class QDialogButtonBox;

namespace quillon {

/// Has Tab go through the buttons of @p box, all of which it has by now, from left to right. By itself the
/// box hands the focus to its first button, past the others and also when that one is hidden: then Tab goes
/// nowhere.
void orderForTab(QDialogButtonBox &box);

} // namespace quillon
