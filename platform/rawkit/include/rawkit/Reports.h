#pragma once
// Reports as the platform delivers them, reduced to what the tests use.
#include <cstdint>

namespace rawkit {

// One relative-mouse report: movement and the button transitions of RAWMOUSE's flags.
struct MouseReport {
    std::int32_t dx = 0;
    std::int32_t dy = 0;                 // positive downwards
    std::uint16_t buttonFlags = 0;       // RI_MOUSE_* transitions
    std::int16_t wheel = 0;              // RI_MOUSE_WHEEL amount, 120 a notch
    std::int16_t hwheel = 0;             // RI_MOUSE_HWHEEL amount
};

// Button transition flags, with the platform's values.
namespace mouse {
constexpr std::uint16_t kLeftDown = 0x0001;
constexpr std::uint16_t kLeftUp = 0x0002;
constexpr std::uint16_t kRightDown = 0x0004;
constexpr std::uint16_t kRightUp = 0x0008;
constexpr std::uint16_t kMiddleDown = 0x0010;
constexpr std::uint16_t kMiddleUp = 0x0020;
constexpr std::uint16_t kWheel = 0x0400;
constexpr std::uint16_t kHWheel = 0x0800;
}  // namespace mouse

}  // namespace rawkit
