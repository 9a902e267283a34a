#include "Timings.h"

#include <algorithm>
#include <cstdio>
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
}

double Timings::mean() const
{
    return m_costs.empty() ? 0.0 : std::accumulate(m_costs.begin(), m_costs.end(), 0.0) / static_cast<double>(m_costs.size());
}

double Timings::p99() const
{
    if (m_costs.empty()) {
        return 0.0;
    }
    std::vector<double> costs = m_costs;
    const auto at = costs.begin() + static_cast<std::ptrdiff_t>(costs.size() * 99 / 100);
    std::nth_element(costs.begin(), at, costs.end());
    return *at;
}

std::size_t Timings::count() const
{
    return m_costs.size();
}

std::string Timings::comparison(const char* name, const Timings& handler, const Timings& plain, double aim)
{
    const double ratio = handler.mean() / plain.mean();
    char line[256];
    std::snprintf(line, sizeof line,
                  "%-26s %8.2f us (p99 %8.2f)  default %6.2f us (p99 %6.2f)  ratio %7.2f  aim <= %4.1f  %s\n", name,
                  handler.mean(), handler.p99(), plain.mean(), plain.p99(), ratio, aim, ratio <= aim ? "met" : "MISSED");
    return line;
}
