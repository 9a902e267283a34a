#include "MarkerGeometry.h"

#include <algorithm>

namespace {
constexpr double kFarOff = 1000000.0;
}

double MarkerGeometry::fraction(int value, int lo, int hi)
{
    if (hi == lo) {
        return 0.5;
    }
    return (static_cast<double>(value) - lo) / (static_cast<double>(hi) - lo);
}

int MarkerGeometry::truncate(double value)
{
    return static_cast<int>(std::clamp(value, -kFarOff, kFarOff));
}
