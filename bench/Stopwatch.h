#pragma once
// Elapsed time from the performance counter, in microseconds.
#include <windows.h>

class Stopwatch {
public:
    // Starts at once.
    Stopwatch();

    void restart();
    double elapsedMicroseconds() const;

private:
    double m_ticksPerMicrosecond;
    LARGE_INTEGER m_start;
};
