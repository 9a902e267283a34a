#pragma once
// Reports built by the tests from their own statement of where each value sits, so that a
// decoder is checked against the offsets a test states, not against what the parser found.
#include <cstddef>
#include <cstdint>
#include <vector>

class ReportBytes {
public:
    // A report of `length` bytes (its id byte counted), zeroed, with the id first when not 0.
    ReportBytes(std::uint8_t reportId, std::size_t length);

    // Writes the low `bits` bits of value at `offset`, counted from the first bit after the id.
    ReportBytes& put(std::size_t offset, std::size_t bits, std::int64_t value);
    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

private:
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_payload;
};
