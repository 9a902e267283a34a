#include "pointerq/PointerJumps.h"

#include <algorithm>
#include <cstdlib>

namespace pointerq {

void PointerJumps::add(const TimedReport& report)
{
    const std::int32_t movement = std::max(std::abs(report.mouse.dx), std::abs(report.mouse.dy));
    if (movement == 0) {
        return;
    }
    // m_recent keeps, in time order, only movements larger than every later one: its front is
    // the largest of the window, found without a scan at any report rate.
    while (!m_recent.empty() && report.timeUs - m_recent.front().first > kWindowUs) {
        m_recent.pop_front();
    }
    const std::int32_t recent = m_recent.empty() ? kRestMovement : m_recent.front().second;
    if (movement >= kMinimum && movement > kFactor * recent) {
        ++m_jumps;
        m_largest = std::max(m_largest, movement);
    }
    while (!m_recent.empty() && m_recent.back().second <= movement) {
        m_recent.pop_back();
    }
    m_recent.emplace_back(report.timeUs, movement);
}

}  // namespace pointerq
