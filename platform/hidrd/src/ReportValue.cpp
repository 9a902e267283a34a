#include "hidrd/ReportValue.h"

#include <algorithm>

namespace hidrd {

ReportValue::ReportValue(const Field& field, std::uint32_t index)
    : m_bitOffset(field.bitOffset + field.bitSize * index),
      m_bitSize(std::min<std::uint32_t>(field.bitSize, 32)),
      m_signed(field.logicalMin < 0)
{
}

std::int32_t ReportValue::read(const std::uint8_t* payload) const
{
    if (m_bitSize == 0) {
        return 0;
    }
    const std::uint8_t* first = payload + m_bitOffset / 8;
    const unsigned shift = m_bitOffset % 8;
    const unsigned bytes = (shift + m_bitSize + 7) / 8;   // at most 5
    std::uint64_t bits = 0;
    for (unsigned i = 0; i < bytes; ++i) {
        bits |= static_cast<std::uint64_t>(first[i]) << (8 * i);
    }
    bits = (bits >> shift) & ((std::uint64_t{1} << m_bitSize) - 1);
    if (m_signed && m_bitSize < 32 && (bits >> (m_bitSize - 1)) != 0) {
        return static_cast<std::int32_t>(static_cast<std::int64_t>(bits) - (std::int64_t{1} << m_bitSize));
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
}

}  // namespace hidrd
