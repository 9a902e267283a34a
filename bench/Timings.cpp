#include "Timings.h"

#include <algorithm>
#include <numeric>

#include "Stopwatch.h"

void Timings::measure(int rounds, const std::function<void()>& action)
{
    Stopwatch watch;
    for (int i = 0; i < rounds; ++i) {
        watch.restart();
        action();
        m_costs.push_back(watch.elapsedMicroseconds());
    }
    std::sort(m_costs.begin(), m_costs.end());
}

double Timings::mean() const
{
    return m_costs.empty() ? 0.0 : std::accumulate(m_costs.begin(), m_costs.end(), 0.0) / static_cast<double>(m_costs.size());
}

double Timings::p99() const
{
    return m_costs.empty() ? 0.0 : m_costs[m_costs.size() * 99 / 100];
}

std::size_t Timings::count() const
{
    return m_costs.size();
}
