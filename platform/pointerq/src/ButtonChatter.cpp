#include "pointerq/ButtonChatter.h"

#include <algorithm>

namespace pointerq {

namespace {

// RI_MOUSE_* down and up flags per button, in Button order.
constexpr std::uint16_t kDown[] = {0x0001, 0x0004, 0x0010, 0x0040, 0x0100};
constexpr std::uint16_t kUp[] = {0x0002, 0x0008, 0x0020, 0x0080, 0x0200};

}  // namespace

ButtonChatter::ButtonChatter(std::int64_t thresholdUs) : m_thresholdUs(thresholdUs) {}

const char* ButtonChatter::name(Button button)
{
    static const char* const names[] = {"left", "right", "middle", "back", "forward"};
    return names[button];
}

void ButtonChatter::add(const TimedReport& report)
{
    for (int b = 0; b < ButtonCount; ++b) {
        Counts& counts = m_counts[b];
        if ((report.mouse.buttonFlags & kDown[b]) != 0) {
            ++counts.presses;
            if (m_releasedUs[b]) {
                const std::int64_t gap = report.timeUs - *m_releasedUs[b];
                if (gap < m_thresholdUs) {
                    ++counts.chatter;
                    counts.shortestGapUs = std::min(gap, counts.shortestGapUs.value_or(gap));
                }
            }
        }
        if ((report.mouse.buttonFlags & kUp[b]) != 0) {
            m_releasedUs[b] = report.timeUs;
        }
    }
}

}  // namespace pointerq
