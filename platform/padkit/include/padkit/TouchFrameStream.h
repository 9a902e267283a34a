#pragma once
// A touchpad's reports or frames as its test sees them: reports assembled into frames, contacts
// followed across frames, and one packet for each complete frame. The live path, recordings and
// session files all go through it, so they follow the same rules.
#include <cstdint>
#include <optional>

#include "padkit/Packet.h"
#include "padkit/TouchPacketBuilder.h"
#include "rawkit/ContactTracker.h"
#include "rawkit/FrameAssembler.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

class TouchFrameStream {
public:
    explicit TouchFrameStream(const rawkit::TouchLayout& layout);

    // The packet of the frame this report completes, if it completes one.
    std::optional<Packet> add(const rawkit::TouchReport& report, std::int64_t timeUs);
    // The packet of a frame that is already complete.
    Packet add(const rawkit::TouchFrame& frame);

    // The frame of the last packet given.
    const rawkit::TouchFrame& lastFrame() const { return m_last; }
    const rawkit::ContactTracker& tracker() const { return m_tracker; }
    unsigned long malformedFrames() const { return m_assembler.malformedFrames(); }

private:
    rawkit::FrameAssembler m_assembler;
    rawkit::ContactTracker m_tracker;
    TouchPacketBuilder m_builder;
    rawkit::TouchFrame m_last;
};

}  // namespace padkit
