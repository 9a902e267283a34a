#pragma once
// The costs of one action repeated, each call timed alone, in microseconds.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class Timings {
public:
    // Calls `action` `rounds` times and keeps the cost of each call, after those kept before.
    void measure(int rounds, const std::function<void()>& action);

    double mean() const;
    double p99() const;
    std::size_t count() const;

    // One line: a handler's timings against the default procedure's for the same messages, their
    // ratio and whether it is within `aim`.
    static std::string comparison(const char* name, const Timings& handler, const Timings& plain, double aim);

private:
    std::vector<double> m_costs;   // in the order measured
};
