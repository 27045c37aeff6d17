#pragma once

#include <QByteArray>

#include <optional>

namespace quillon::packed_bytes {

/// In bytes, unpacked; more than that is taken for damage.
constexpr quint32 largest = 64 * 1'048'576;

/**
 * What qCompress() made @p packed of.
 *
 * None when it is not whole, or holds more than it says at its beginning, or than the largest there may be: a
 * row can come from a stranger's backup, and a few of its bytes must not take all memory.
 */
std::optional<QByteArray> unpacked(const QByteArray &packed);

} // namespace quillon::packed_bytes
