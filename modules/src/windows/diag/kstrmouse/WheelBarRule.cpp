#include "WheelBarRule.h"

namespace {
constexpr int kJump = 10;
constexpr int kSnapToUpper = 95;  // this or more shows as full
constexpr int kSnapToLower = 6;   // below this shows as empty
}  // namespace

int WheelBarRule::afterStepUp(int nudgedPosition)
{
    const int value = nudgedPosition + kJump;
    return value >= kSnapToUpper ? kUpper : value;
}

int WheelBarRule::afterStepDown(int nudgedPosition)
{
    const int value = nudgedPosition - kJump;
    return value < kSnapToLower ? kLower : value;
}
