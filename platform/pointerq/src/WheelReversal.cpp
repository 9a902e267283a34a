#include "pointerq/WheelReversal.h"

namespace pointerq {

void WheelReversal::add(std::int64_t timeUs, int amount)
{
    if (amount == 0) {
        return;
    }
    const int direction = amount > 0 ? 1 : -1;
    (direction > 0 ? m_up : m_down) += 1;
    const bool inWindow = m_lastUs && timeUs - *m_lastUs <= kWindowUs;
    m_lastUs = timeUs;
    if (m_stray) {
        m_stray = false;
        if (inWindow && direction == m_direction) {
            // The turn went on past the odd notch: it was thrown, not turned.
            ++m_reversals;
            ++m_runLength;
            return;
        }
        if (inWindow) {
            // Two notches the other way: the person turned back.
            m_direction = direction;
            m_runLength = 2;
            return;
        }
    }
    if (inWindow && direction == m_direction) {
        ++m_runLength;
    } else if (inWindow && m_runLength >= kRun) {
        m_stray = true;   // decided by the next notch
    } else {
        m_direction = direction;
        m_runLength = 1;
    }
}

}  // namespace pointerq
