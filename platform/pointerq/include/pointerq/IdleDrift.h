#pragma once
// Movement the device reports while nobody touches it: the hands-off period runs for a set time
// from when the user starts it, and every movement report inside it counts.
#include <cstdint>
#include <optional>

#include "pointerq/TimedReport.h"

namespace pointerq {

class IdleDrift {
public:
    void start(std::int64_t nowUs, std::int64_t lengthUs);
    void add(const TimedReport& report);

    bool running(std::int64_t nowUs) const;
    bool done(std::int64_t nowUs) const;
    // Microseconds left, 0 when not running.
    std::int64_t remainingUs(std::int64_t nowUs) const;
    std::uint32_t reports() const { return m_reports; }
    std::int64_t counts() const { return m_counts; }   // |dx| + |dy| summed

private:
    std::optional<std::int64_t> m_startUs;
    std::int64_t m_lengthUs = 0;
    std::uint32_t m_reports = 0;
    std::int64_t m_counts = 0;
};

}  // namespace pointerq
