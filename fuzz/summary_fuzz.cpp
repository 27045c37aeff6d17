#include "store/summary_file.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for a summary; replacing its lists leaves the rest of what it says, and what is written
/// plainly is read back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const Summary summary = summary_file::parse(bytes);
    const QString text = QString::fromUtf8(bytes);
    summary_file::parse(
        summary_file::withSubmissions(text, summary.siteList(), summary.versionList()).toUtf8());

    const QString line = text.section(u'\n', 0, 0).trimmed();
    if (line.isEmpty() || line.contains(u'<') || line.contains(u'&') || line.contains(QChar::Null) ||
        !line.isValidUtf16())
        return 0;
    if (summary_file::parse(summary_file::text({.version = line}).toUtf8()).version != line)
        std::abort();
    return 0;
}
