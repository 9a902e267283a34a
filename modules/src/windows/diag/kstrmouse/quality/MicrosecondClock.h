#pragma once
// The performance counter in microseconds: the time base of the reports and of the hands-off
// period alike.
#include <cstdint>

class MicrosecondClock {
public:
    MicrosecondClock();
    std::int64_t nowUs() const;

private:
    std::int64_t m_frequency;   // counter ticks a second
};
