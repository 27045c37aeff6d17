#include "journal/packed_bytes.h"

#include <QtEndian>

#include <zlib.h>

namespace quillon::packed_bytes {

std::optional<QByteArray> unpacked(const QByteArray &packed)
{
    // It begins with the number of its bytes, and the library writes no more of them than there is room for.
    constexpr qsizetype begin = sizeof(quint32);
    const quint32 size = packed.size() < begin ? 0 : qFromBigEndian<quint32>(packed.constData());
    if (packed.size() < begin || size > largest)
        return std::nullopt;
    QByteArray bytes(qsizetype(size), Qt::Uninitialized);
    uLongf written = size;
    const int code = ::uncompress(reinterpret_cast<Bytef *>(bytes.data()), &written,
                                  reinterpret_cast<const Bytef *>(packed.constData() + begin),
                                  uLong(packed.size() - begin));
    return code == Z_OK && written == size ? std::optional(bytes) : std::nullopt;
}

} // namespace quillon::packed_bytes
