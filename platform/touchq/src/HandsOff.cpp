#include "touchq/HandsOff.h"

#include <algorithm>

namespace touchq {

void HandsOff::start(std::int64_t nowUs, std::int64_t lengthUs)
{
    m_startUs = nowUs;
    m_lengthUs = lengthUs;
    m_ghosts = 0;
    m_kept.clear();
    m_down.clear();
}

void HandsOff::add(const rawkit::TouchFrame& frame)
{
    if (!running(frame.timeUs)) {
        return;
    }
    m_next.clear();
    for (const rawkit::ContactReport& contact : frame.contacts) {
        if (!contact.tip) {
            continue;
        }
        m_next.push_back(contact.id);
        if (std::find(m_down.begin(), m_down.end(), contact.id) != m_down.end()) {
            continue;   // the same touch as in the frame before
        }
        ++m_ghosts;
        if (m_kept.size() < kKept) {
            m_kept.push_back(Ghost{contact.id, contact.x, contact.y, frame.timeUs - *m_startUs, !contact.confidence});
        }
    }
    m_down.swap(m_next);
}

bool HandsOff::running(std::int64_t nowUs) const
{
    return m_startUs && nowUs >= *m_startUs && nowUs < *m_startUs + m_lengthUs;
}

bool HandsOff::done(std::int64_t nowUs) const
{
    return m_startUs && nowUs >= *m_startUs + m_lengthUs;
}

std::int64_t HandsOff::remainingUs(std::int64_t nowUs) const
{
    return running(nowUs) ? *m_startUs + m_lengthUs - nowUs : 0;
}

}  // namespace touchq
