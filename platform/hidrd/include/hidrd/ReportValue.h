#pragma once
// One value of a report: where its bits sit and whether they are signed (a field whose logical
// minimum is below zero), read from a report the caller has checked is long enough.
#include <cstdint>

#include "hidrd/ReportDescriptor.h"

namespace hidrd {

class ReportValue {
public:
    ReportValue() = default;
    // Element `index` of the field; values wider than 32 bits are read in their low 32.
    ReportValue(const Field& field, std::uint32_t index);

    // payload: the report after its id byte, as long as the descriptor declares it.
    std::int32_t read(const std::uint8_t* payload) const;

private:
    std::uint32_t m_bitOffset = 0;
    std::uint32_t m_bitSize = 0;
    bool m_signed = false;
};

}  // namespace hidrd
