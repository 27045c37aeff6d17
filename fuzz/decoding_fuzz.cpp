#include "platform/text_decoding.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for a text in some encoding; the text, as UTF-8, is the same text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = decodedXmlText(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    // A zero could tell of UTF-16, and a byte-order mark be dropped once more.
    if (text.isValidUtf16() && !text.contains(QChar::Null) && !text.startsWith(QChar::ByteOrderMark) &&
        decodedXmlText(text.toUtf8()) != text)
        std::abort();
    return 0;
}
