#include "ReportBytes.h"

ReportBytes::ReportBytes(std::uint8_t reportId, std::size_t length) : m_bytes(length, 0), m_payload(reportId ? 1 : 0)
{
    if (reportId != 0) {
        m_bytes[0] = reportId;
    }
}

ReportBytes& ReportBytes::put(std::size_t offset, std::size_t bits, std::int64_t value)
{
    for (std::size_t i = 0; i < bits; ++i) {
        const std::size_t bit = offset + i;
        const std::uint8_t mask = static_cast<std::uint8_t>(1U << (bit % 8));
        std::uint8_t& byte = m_bytes.at(m_payload + bit / 8);
        byte = static_cast<std::uint8_t>(((static_cast<std::uint64_t>(value) >> i) & 1) ? byte | mask : byte & ~mask);
    }
    return *this;
}
