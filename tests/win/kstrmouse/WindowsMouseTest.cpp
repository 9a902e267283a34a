// The mouse model against the system's own answers (Wine's virtual mouse: three buttons and a wheel).
#include <gtest/gtest.h>
#include <windows.h>

#include "WindowsMouse.h"

namespace {

TEST(WindowsMouseOnThisSystem, FindsButtonsAndWheelAsTheSystemReports)
{
    WindowsMouse mouse;
    ASSERT_TRUE(mouse.probe());
    EXPECT_EQ(mouse.state[Mouse::LeftButton], Untested);
    EXPECT_EQ(mouse.state[Mouse::RightButton], Untested);
    const bool wheel = GetSystemMetrics(SM_MOUSEWHEELPRESENT) != 0;
    EXPECT_EQ(mouse.state[Mouse::MiddleButton], wheel ? Untested : Absent);
    EXPECT_EQ(mouse.state[Mouse::VerticalWheel], wheel ? Untested : Absent);
    EXPECT_EQ(mouse.mouseType, wheel ? 3u : 1u);
    const bool tilt = GetSystemMetrics(SM_MOUSEHORIZONTALWHEELPRESENT) != 0;
    EXPECT_EQ(mouse.state[Mouse::TiltLeft], tilt ? Untested : Absent);
    EXPECT_EQ(mouse.state[Mouse::TiltRight], tilt ? Untested : Absent);
    // More than five reported buttons are not believed: the count stays 0.
    const auto buttons = static_cast<unsigned>(GetSystemMetrics(SM_CMOUSEBUTTONS));
    EXPECT_EQ(mouse.buttonCount, buttons <= 5 ? buttons : 0u);
}

TEST(WindowsMouseOnThisSystem, SeesSwappedButtons)
{
    const BOOL wasSwapped = SwapMouseButton(TRUE);
    WindowsMouse mouse;
    mouse.probe();
    SwapMouseButton(wasSwapped);
    EXPECT_TRUE(mouse.buttonsSwapped);
    EXPECT_EQ(mouse.state[Mouse::LeftButton], Untested);
    EXPECT_EQ(mouse.state[Mouse::RightButton], Untested);
}

}  // namespace
