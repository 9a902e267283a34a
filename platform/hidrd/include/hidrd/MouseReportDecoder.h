#pragma once
// Decodes the reports of a descriptor's mice (top-level collections of Generic Desktop Mouse or
// Pointer usage with an X and a Y): buttons, X, Y, wheel and horizontal wheel (AC Pan). Every
// mouse is decoded, each by its report id: a touchpad's own mouse, and a pointing stick passed
// through beside it, both send reports of that kind.
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "hidrd/ButtonReader.h"
#include "hidrd/ReportDescriptor.h"
#include "hidrd/ReportValue.h"

namespace hidrd {

struct MouseSample {
    std::uint8_t buttons = 0;    // bit 0 button 1 (left), bit 1 right, bit 2 middle, ...
    std::int32_t x = 0;          // a movement, or a position where `absolute`
    std::int32_t y = 0;          // positive downwards
    std::int32_t wheel = 0;      // notches, positive away from the user
    std::int32_t hwheel = 0;     // notches, positive to the right
    bool absolute = false;
};

class MouseReportDecoder {
public:
    enum class Outcome { Decoded, OtherReport, TooShort };

    // A DescriptorError when the descriptor has no mouse with an X and a Y.
    explicit MouseReportDecoder(const ReportDescriptor& descriptor);

    Outcome decode(const std::uint8_t* report, std::size_t length, MouseSample& out) const;
    std::size_t mice() const { return m_mice.size(); }

private:
    struct Mouse {
        std::size_t reportBytes = 0;
        ReportValue x;
        ReportValue y;
        std::optional<ReportValue> wheel;
        std::optional<ReportValue> hwheel;
        ButtonReader buttons;
        bool absolute = false;
    };

    bool m_usesReportIds = false;
    std::vector<Mouse> m_mice;
    std::array<std::int16_t, 256> m_byReportId{};   // index into m_mice, -1 for none
};

}  // namespace hidrd
