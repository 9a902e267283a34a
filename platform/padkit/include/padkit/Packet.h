#pragma once
// One report of a touch device: finger, stick and buttons at one moment of a session.
#include <cstdint>

namespace padkit {

struct Packet {
    std::int64_t timeMs = 0;     // since the session began
    bool finger = false;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    bool motion = false;         // the finger moved since the previous packet
    std::int32_t stickX = 0;
    std::int32_t stickY = 0;
    bool left = false;
    bool right = false;
    bool middle = false;
};

}  // namespace padkit
