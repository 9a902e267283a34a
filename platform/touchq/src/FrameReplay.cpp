#include "touchq/FrameReplay.h"

#include <cmath>
#include <utility>

namespace touchq {

FrameReplay::FrameReplay(std::vector<rawkit::TouchFrame> frames, double speed, bool loop)
    : m_frames(std::move(frames)),
      m_speed(speed > 0.0 && std::isfinite(speed) ? speed : 0.0),
      // Laps of no length would give the same frames for ever at one moment.
      m_loop(loop && !m_frames.empty() && m_frames.back().timeUs > 0)
{
}

std::int64_t FrameReplay::recordedTime() const
{
    return m_lapOffsetUs + m_frames[m_next].timeUs;
}

std::int64_t FrameReplay::positionUs(std::int64_t wallUs) const
{
    if (m_speed == 0.0) {
        return m_lastTimeUs + (wallUs - m_lastWallUs);
    }
    return static_cast<std::int64_t>(std::llround(static_cast<double>(wallUs) * m_speed));
}

std::optional<std::int64_t> FrameReplay::nextDueUs() const
{
    if (m_next >= m_frames.size()) {
        return std::nullopt;
    }
    if (m_speed == 0.0) {
        return m_lastWallUs;
    }
    return static_cast<std::int64_t>(std::ceil(static_cast<double>(recordedTime()) / m_speed));
}

std::optional<rawkit::TouchFrame> FrameReplay::take(std::int64_t wallUs)
{
    const std::optional<std::int64_t> due = nextDueUs();
    if (!due || *due > wallUs) {
        return std::nullopt;
    }
    rawkit::TouchFrame frame = m_frames[m_next];
    frame.timeUs = recordedTime();
    m_lastTimeUs = frame.timeUs;
    m_lastWallUs = wallUs;
    if (++m_next == m_frames.size() && m_loop) {
        m_next = 0;
        m_lapOffsetUs += m_frames.back().timeUs;
    }
    return frame;
}

}  // namespace touchq
