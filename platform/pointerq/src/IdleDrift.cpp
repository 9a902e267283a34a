#include "pointerq/IdleDrift.h"

#include <cstdlib>

namespace pointerq {

void IdleDrift::start(std::int64_t nowUs, std::int64_t lengthUs)
{
    m_startUs = nowUs;
    m_lengthUs = lengthUs;
    m_reports = 0;
    m_counts = 0;
}

void IdleDrift::add(const TimedReport& report)
{
    if (!running(report.timeUs) || (report.mouse.dx == 0 && report.mouse.dy == 0)) {
        return;
    }
    ++m_reports;
    m_counts += std::abs(report.mouse.dx) + std::abs(report.mouse.dy);
}

bool IdleDrift::running(std::int64_t nowUs) const
{
    return m_startUs && nowUs >= *m_startUs && nowUs < *m_startUs + m_lengthUs;
}

bool IdleDrift::done(std::int64_t nowUs) const
{
    return m_startUs && nowUs >= *m_startUs + m_lengthUs;
}

std::int64_t IdleDrift::remainingUs(std::int64_t nowUs) const
{
    return running(nowUs) ? *m_startUs + m_lengthUs - nowUs : 0;
}

}  // namespace pointerq
