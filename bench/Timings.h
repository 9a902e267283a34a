#pragma once
// The costs of one action repeated, each call timed alone, in microseconds.
#include <cstddef>
#include <functional>
#include <vector>

class Timings {
public:
    // Calls `action` `rounds` times and keeps the cost of each call.
    void measure(int rounds, const std::function<void()>& action);

    double mean() const;
    double p99() const;
    std::size_t count() const;

private:
    std::vector<double> m_costs;   // sorted once measured
};
