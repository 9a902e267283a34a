#pragma once
// The buttons of a report, Button page usages 1 to 8, as bits (bit 0 button 1): a variable field
// gives a bit an element, an array field the button each of its values names.
#include <cstdint>
#include <vector>

#include "hidrd/ReportDescriptor.h"
#include "hidrd/ReportValue.h"

namespace hidrd {

class ButtonReader {
public:
    ButtonReader() = default;
    explicit ButtonReader(const std::vector<const Field*>& fields);

    // payload: the report after its id byte, as long as the descriptor declares it.
    std::uint8_t read(const std::uint8_t* payload) const;
    bool empty() const { return m_bits.empty() && m_arrays.empty(); }

private:
    struct Bit {
        ReportValue value;
        std::uint8_t mask = 0;
    };
    struct Array {
        ReportValue value;
        std::int32_t logicalMin = 0;
        std::vector<std::uint8_t> masks;   // per value from the logical minimum
    };

    std::vector<Bit> m_bits;
    std::vector<Array> m_arrays;
};

}  // namespace hidrd
