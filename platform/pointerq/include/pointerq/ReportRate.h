#pragma once
// How often the device reports while it moves: the intervals between movement reports within a
// continuous movement (a pause of 100 ms or more starts a new one), their median, 1st and 99th
// percentile, the rate the median gives, and the dropouts: gaps of more than four median intervals
// within a movement.
#include <cstdint>
#include <optional>

#include "pointerq/IntervalHistogram.h"
#include "pointerq/TimedReport.h"

namespace pointerq {

class ReportRate {
public:
    static constexpr double kDropoutFactor = 4.0;

    void add(const TimedReport& report);

    std::uint64_t intervals() const { return m_histogram.count(); }
    std::optional<double> medianUs() const { return m_histogram.percentileUs(0.5); }
    std::optional<double> percentileUs(double fraction) const { return m_histogram.percentileUs(fraction); }
    std::optional<double> rateHz() const;
    std::uint64_t dropouts() const;
    const IntervalHistogram& histogram() const { return m_histogram; }

private:
    IntervalHistogram m_histogram;
    std::optional<std::int64_t> m_lastMoveUs;
};

}  // namespace pointerq
