#pragma once
// A pointer that jumps: one report whose movement is far beyond the device's recent movement.
// Rule: a report is a jump when its movement (the larger of |dx| and |dy|) is at least kMinimum
// counts and more than kFactor times the largest movement of the reports of the last kWindowUs
// (a device at rest counts as having moved kRestMovement). A flick speeds up over several reports,
// each at most a few times the one before, so it never is one.
#include <cstdint>
#include <deque>
#include <utility>

#include "pointerq/TimedReport.h"

namespace pointerq {

class PointerJumps {
public:
    static constexpr std::int32_t kMinimum = 100;
    static constexpr std::int32_t kFactor = 6;
    static constexpr std::int32_t kRestMovement = 16;
    static constexpr std::int64_t kWindowUs = 50000;

    void add(const TimedReport& report);

    std::uint32_t jumps() const { return m_jumps; }
    std::int32_t largest() const { return m_largest; }   // the largest jump's movement; 0 without one

private:
    std::deque<std::pair<std::int64_t, std::int32_t>> m_recent;   // time, movement: the window's maxima
    std::uint32_t m_jumps = 0;
    std::int32_t m_largest = 0;
};

}  // namespace pointerq
