#pragma once
// Turns a precision touchpad's complete frames into the packets its test reads: the finger shown
// (the earliest-down finger still down) with the high Y at the top (as the recorded sessions have
// it), a finger width on the 0-15 scale, motion against the previous packet, and the buttons. A
// pad with one button under its whole surface (a clickpad) gives a right click the way Windows
// does: with two fingers down, or in the bottom right corner.
#include <cstdint>

#include "padkit/Packet.h"
#include "rawkit/ContactTracker.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

class TouchPacketBuilder {
public:
    static constexpr std::int32_t kDefaultWidth = 5;   // a fingertip, where the pad reports no width

    explicit TouchPacketBuilder(const rawkit::TouchLayout& layout);

    // The packet of a frame the tracker has just taken.
    Packet build(const rawkit::TouchFrame& frame, const rawkit::ContactTracker& tracker);

private:
    bool inRightClickZone(std::int32_t x, std::int32_t y) const;
    std::int32_t width(const rawkit::ContactReport& contact) const;

    rawkit::TouchLayout m_layout;
    Packet m_previous;
};

}  // namespace padkit
