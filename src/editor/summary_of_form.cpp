#include "editor/summary_of_form.h"

#include "pad/pad_form.h"

namespace quillon {

namespace {

/// Year, month and day as entered; empty unless all three are.
QString releaseDate(const PadForm &form)
{
    const QString day = form.value(FieldId::releaseDateDay);
    const QString month = form.value(FieldId::releaseDateMonth);
    const QString year = form.value(FieldId::releaseDateYear);
    if (day.isEmpty() || month.isEmpty() || year.isEmpty())
        return {};
    return year + u'-' + month + u'-' + day;
}

} // namespace

Summary summaryOf(const PadForm &form)
{
    Summary summary;
    summary.version = form.value(FieldId::programVersion);
    summary.releaseDate = releaseDate(form);
    summary.operatingSystems = form.value(FieldId::osTable);
    return summary;
}

} // namespace quillon
