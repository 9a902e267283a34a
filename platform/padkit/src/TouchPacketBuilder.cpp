#include "padkit/TouchPacketBuilder.h"

#include <algorithm>
#include <cmath>

namespace padkit {

TouchPacketBuilder::TouchPacketBuilder(const rawkit::TouchLayout& layout) : m_layout(layout) {}

bool TouchPacketBuilder::inRightClickZone(std::int32_t x, std::int32_t y) const
{
    // The right half of the bottom fifth, in the device's own Y (growing downwards).
    const double fx = static_cast<double>(x - m_layout.x.low) / std::max(1, m_layout.x.high - m_layout.x.low);
    const double fy = static_cast<double>(y - m_layout.y.low) / std::max(1, m_layout.y.high - m_layout.y.low);
    return fx >= 0.5 && fy >= 0.8;
}

std::int32_t TouchPacketBuilder::width(const rawkit::ContactReport& contact) const
{
    if (!contact.width || !m_layout.width || m_layout.width->high <= m_layout.width->low) {
        return kDefaultWidth;
    }
    const double fraction = static_cast<double>(*contact.width - m_layout.width->low) /
                            (m_layout.width->high - m_layout.width->low);
    return std::clamp(static_cast<std::int32_t>(std::lround(fraction * 15.0)), 1, 15);
}

Packet TouchPacketBuilder::build(const rawkit::TouchFrame& frame, const rawkit::ContactTracker& tracker)
{
    Packet packet;
    packet.timeMs = frame.timeUs / 1000;
    const rawkit::ContactTracker::Finger* shown = tracker.shown();
    packet.finger = shown != nullptr;
    if (shown != nullptr) {
        packet.x = shown->contact.x;
        packet.y = m_layout.y.low + m_layout.y.high - shown->contact.y;
        packet.width = width(shown->contact);
        packet.motion = m_previous.finger && (packet.x != m_previous.x || packet.y != m_previous.y);
    }
    // One button alone is the pad's own click: where and with how many fingers says which.
    const bool button1 = (frame.buttons & 1) != 0;
    const bool secondary = tracker.fingers().size() >= 2 ||
                           (shown != nullptr && inRightClickZone(shown->contact.x, shown->contact.y));
    packet.left = button1 && !secondary;
    packet.right = (frame.buttons & 2) != 0 || (button1 && secondary);
    packet.middle = (frame.buttons & 4) != 0;
    m_previous = packet;
    return packet;
}

}  // namespace padkit
