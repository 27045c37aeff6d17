#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for XML; what was mended must be sound.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString mended = TolerantXml(decodedXmlText(bytes)).serialised();
    // A text of blanks that were written as references goes with the second reading.
    const QString settled = TolerantXml(mended).serialised();
    if (TolerantXml(settled).serialised() != settled)
        std::abort();
    return 0;
}
