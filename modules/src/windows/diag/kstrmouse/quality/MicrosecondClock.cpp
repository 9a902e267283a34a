#include "MicrosecondClock.h"

#include <windows.h>

MicrosecondClock::MicrosecondClock()
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    m_frequency = frequency.QuadPart;
}

std::int64_t MicrosecondClock::nowUs() const
{
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    // Split, so that a large counter times a million cannot overflow.
    return counter.QuadPart / m_frequency * 1000000 + counter.QuadPart % m_frequency * 1000000 / m_frequency;
}
