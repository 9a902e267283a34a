#pragma once
// Where a replay of recorded frames stands: which frame is due when, on the recording's own
// clock, at a speed or unpaced, once or in laps. Pure bookkeeping: the platform's source turns
// the waits into timers. Frames keep their recorded times (plus the laps before), so that the
// checks measure the device's rate, not the replay's.
#include <cstdint>
#include <optional>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace touchq {

class FrameReplay {
public:
    // speed: recorded time per wall time (2: twice as fast); 0: unpaced, each frame at once.
    // loop: after the last frame the recording starts again, its first frame its own time later.
    FrameReplay(std::vector<rawkit::TouchFrame> frames, double speed, bool loop);

    // The recording's time at wallUs since the replay began. Unpaced: the last frame's time and
    // the wall time since it was taken.
    std::int64_t positionUs(std::int64_t wallUs) const;
    // Wall time when the next frame is due; none when the replay is over.
    std::optional<std::int64_t> nextDueUs() const;
    // The next frame, if it is due at wallUs; it is then taken.
    std::optional<rawkit::TouchFrame> take(std::int64_t wallUs);
    bool over() const { return !nextDueUs(); }

private:
    std::int64_t recordedTime() const;   // of the next frame, with its lap's offset

    std::vector<rawkit::TouchFrame> m_frames;
    double m_speed;
    bool m_loop;
    std::size_t m_next = 0;
    std::int64_t m_lapOffsetUs = 0;
    std::int64_t m_lastTimeUs = 0;       // of the frame taken last
    std::int64_t m_lastWallUs = 0;       // when it was taken
};

}  // namespace touchq
