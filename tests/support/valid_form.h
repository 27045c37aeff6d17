#pragma once

#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "support/files.h"

namespace quillon {

/// A text of that length.
inline QString of(qsizetype length, QChar unit = u'x')
{
    return QString(length, unit);
}

/// Fills @p form with values that no rule objects to: a field that may be empty stays so, unless @p all.
inline void fillValidly(PadForm &form, bool all = false)
{
    loadPADData(sample(all ? QStringLiteral("valid_whole.xml") : QStringLiteral("valid.xml")), form);
}

} // namespace quillon
