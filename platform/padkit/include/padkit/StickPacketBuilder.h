#pragma once
// Turns a pointing stick's relative-mouse reports into the packets its test reads: each report's
// movement is the stick reading (up is positive, as in the recorded sessions), and its button
// transitions keep the held buttons. A stick at rest sends nothing: the source asks for a rest
// packet once reports stop.
#include <cstdint>

#include "padkit/Packet.h"
#include "rawkit/Reports.h"

namespace padkit {

class StickPacketBuilder {
public:
    static constexpr std::int32_t kRange = 40;   // the reading's ends, in counts per report

    Packet build(const rawkit::MouseReport& report, std::int64_t timeMs);
    // The stick back in the middle, buttons as they are.
    Packet rest(std::int64_t timeMs);

private:
    Packet m_state;
};

}  // namespace padkit
