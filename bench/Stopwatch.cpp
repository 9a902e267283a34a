#include "Stopwatch.h"

Stopwatch::Stopwatch() : m_ticksPerMicrosecond(0), m_start{}
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    m_ticksPerMicrosecond = static_cast<double>(frequency.QuadPart) / 1e6;
    restart();
}

void Stopwatch::restart()
{
    QueryPerformanceCounter(&m_start);
}

double Stopwatch::elapsedMicroseconds() const
{
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart - m_start.QuadPart) / m_ticksPerMicrosecond;
}
