#pragma once

namespace quillon {

/// Has screen readers told what those widgets of the submission window are that are of no kind they know.
void installAccessibleRoles();

} // namespace quillon
