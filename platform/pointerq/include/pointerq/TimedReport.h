#pragma once
// One report of a pointing device as the quality checks take it: when it arrived and what it said.
#include <cstdint>

#include "rawkit/Reports.h"

namespace pointerq {

struct TimedReport {
    std::int64_t timeUs = 0;     // arrival, microseconds on a steady clock
    rawkit::MouseReport mouse;   // movement, button transitions, wheel and tilt
};

}  // namespace pointerq
