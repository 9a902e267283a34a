#pragma once
// How far the wheel bar moves for one wheel step. The bar first nudges by kNudge (the control
// clamps that to its range), then the value read back jumps by kJump more and snaps to the end
// of the range once it is close: one step is 13 in all, and eight steps cross the whole bar.
class WheelBarRule {
public:
    static constexpr int kLower = 0;
    static constexpr int kUpper = 100;
    static constexpr int kNudge = 3;

    // The bar's value after a step away from the user, from the position read after the nudge.
    static int afterStepUp(int nudgedPosition);
    // The bar's value after a step toward the user, from the position read after the nudge.
    static int afterStepDown(int nudgedPosition);
};
