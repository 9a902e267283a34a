#include "padkit/StickPacketBuilder.h"

#include <algorithm>

namespace padkit {

Packet StickPacketBuilder::build(const rawkit::MouseReport& report, std::int64_t timeMs)
{
    namespace mouse = rawkit::mouse;
    const auto apply = [&report](bool& held, std::uint16_t down, std::uint16_t up) {
        if ((report.buttonFlags & down) != 0) {
            held = true;
        }
        if ((report.buttonFlags & up) != 0) {
            held = false;
        }
    };
    apply(m_state.left, mouse::kLeftDown, mouse::kLeftUp);
    apply(m_state.right, mouse::kRightDown, mouse::kRightUp);
    apply(m_state.middle, mouse::kMiddleDown, mouse::kMiddleUp);
    m_state.timeMs = timeMs;
    m_state.stickX = std::clamp(report.dx, -kRange, kRange);
    m_state.stickY = std::clamp(-report.dy, -kRange, kRange);
    return m_state;
}

Packet StickPacketBuilder::rest(std::int64_t timeMs)
{
    m_state.timeMs = timeMs;
    m_state.stickX = 0;
    m_state.stickY = 0;
    return m_state;
}

}  // namespace padkit
