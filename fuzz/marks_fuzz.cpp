#include "store/summary_file.h"
#include "submission/submission_marks.h"

#include <cstdlib>

using namespace quillon;
using namespace quillon::submission_marks;

namespace {

/// For each site the summary is read several times, so more of them cost the square.
constexpr qsizetype mostSites = 24;

} // namespace

/// Takes any line for a summary and the others for sites; a mark that can be kept is read back, and goes
/// again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QStringList lines = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size))
                                  .split(u'\n')
                                  .mid(0, mostSites);
    static_cast<void>(withoutMark(withMark(lines.first(), lines.last()), lines.last()));

    QString summary = summary_file::emptyText();
    for (const QString &site : lines) {
        if (site.isEmpty() || !canBeKept(site))
            continue;
        summary = withMark(summary, site);
        if (!summary_file::parse(summary.toUtf8()).siteList().contains(site))
            std::abort();
    }
    for (const QString &site : lines) {
        const qsizetype marks = summary_file::parse(summary.toUtf8()).siteList().size();
        const QString less = withoutMark(summary, site);
        if (less != summary && summary_file::parse(less.toUtf8()).siteList().size() > marks)
            std::abort();
        summary = less;
    }
    return 0;
}
