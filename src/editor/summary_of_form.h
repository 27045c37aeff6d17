#pragma once

#include "store/summary_file.h"

namespace quillon {

class PadForm;

/// What the list of titles shows of @p form; without the flag of the full check, and without marks.
Summary summaryOf(const PadForm &form);

} // namespace quillon
