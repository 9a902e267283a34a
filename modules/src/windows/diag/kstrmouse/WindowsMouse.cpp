#include "WindowsMouse.h"

#include "SystemMetrics.h"

namespace {
// Larger counts are not believed: the status panel knows at most five buttons.
constexpr unsigned int kMaxButtonCount = 5;
}  // namespace

bool WindowsMouse::probe()
{
    if (GetSystemMetrics(SM_MOUSEPRESENT) == 0) {
        return false;
    }
    state[LeftButton] = Untested;
    state[RightButton] = Untested;
    mouseType = 1;
    if (GetSystemMetrics(SM_SWAPBUTTON) != 0) {
        buttonsSwapped = true;
    }
    if (GetSystemMetrics(SM_MOUSEWHEELPRESENT) != 0) {
        state[MiddleButton] = Untested;
        state[VerticalWheel] = Untested;
        mouseType = 3;
    }
    if (GetSystemMetrics(SM_MOUSEHORIZONTALWHEELPRESENT) != 0) {
        state[TiltLeft] = Untested;
        state[TiltRight] = Untested;
    }
    const auto buttons = static_cast<unsigned int>(GetSystemMetrics(SM_CMOUSEBUTTONS));
    if (buttons <= kMaxButtonCount) {
        buttonCount = buttons;
    }
    // The side buttons come after the first three.
    if (buttonCount >= 4) {
        state[BackButton] = Untested;
    }
    if (buttonCount >= 5) {
        state[ForwardButton] = Untested;
    }
    return true;
}
