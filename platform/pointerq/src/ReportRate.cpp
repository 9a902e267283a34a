#include "pointerq/ReportRate.h"

namespace pointerq {

void ReportRate::add(const TimedReport& report)
{
    if (report.mouse.dx == 0 && report.mouse.dy == 0) {
        return;
    }
    if (m_lastMoveUs) {
        m_histogram.add(report.timeUs - *m_lastMoveUs);   // a pause is not counted
    }
    m_lastMoveUs = report.timeUs;
}

std::optional<double> ReportRate::rateHz() const
{
    const std::optional<double> median = medianUs();
    if (!median || *median <= 0.0) {
        return std::nullopt;
    }
    return 1e6 / *median;
}

std::uint64_t ReportRate::dropouts() const
{
    const std::optional<double> median = medianUs();
    return median ? m_histogram.countAbove(kDropoutFactor * *median) : 0;
}

}  // namespace pointerq
