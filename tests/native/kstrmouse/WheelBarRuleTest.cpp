// The wheel bar's step arithmetic at its snap thresholds (the whole climb and fall is checked
// on the real progress bar under Wine).
#include <gtest/gtest.h>

#include "WheelBarRule.h"

namespace {

TEST(WheelBarRule, SnapsToTheEndsFrom95AndBelow6)
{
    struct Case {
        int nudged, up, down;
    };
    for (const Case& c : {Case{84, 94, 74}, Case{85, 100, 75}, Case{100, 100, 90}, Case{16, 26, 6},
                          Case{15, 25, 0}, Case{0, 10, 0}, Case{-3, 7, 0}}) {
        SCOPED_TRACE(c.nudged);
        EXPECT_EQ(WheelBarRule::afterStepUp(c.nudged), c.up);
        EXPECT_EQ(WheelBarRule::afterStepDown(c.nudged), c.down);
    }
}

}  // namespace
