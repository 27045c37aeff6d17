#include "pad/merged_document.h"
#include "pad/pad_document.h"

#include <algorithm>
#include <cstdlib>

using namespace quillon;

/// Takes the first line for a version and the bytes after it for a PAD file that it is laid over: without it
/// every byte stays, and what is told as merged can be read back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const qsizetype end = bytes.indexOf('\n');
    const QByteArray original = bytes.sliced(end + 1);
    if (const auto same = mergedDocument(original, {}); same && *same != original)
        std::abort();
    QString version = QString::fromUtf8(bytes.first(std::max<qsizetype>(end, 0))).simplified();
    version.removeIf([](QChar c) { return !c.isPrint(); }); // Some of these no document can hold.
    FieldValues values;
    values[size_t(FieldId::programVersion)] = version;
    const auto merged = mergedDocument(original, values);
    if (!merged)
        return 0;
    const auto there = [](const QByteArray &xml) {
        return PadDocument(xml).xml().first(padField(FieldId::programVersion).element).value_or(QString());
    };
    if (const QString read = there(*merged); read != version && read != there(original))
        std::abort();
    return 0;
}
