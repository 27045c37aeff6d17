#include "platform/property_list.h"

#include <cstdlib>

using namespace quillon;

/// Takes any bytes for a property list; what can be read must be readable again after it was written.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto first = property_list::read(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (first && property_list::read(property_list::write(*first)) != *first)
        std::abort();
    return 0;
}
