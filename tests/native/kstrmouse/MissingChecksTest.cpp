#include <gtest/gtest.h>

#include <vector>

#include "MissingChecks.h"

namespace {

// A mouse with a wheel and tilt, nothing used yet.
class TestMouse : public Mouse {
public:
    TestMouse()
    {
        for (std::uint32_t& control : state) {
            control = Untested;
        }
    }
    bool probe() override { return true; }
};

using Checks = std::vector<MissingChecks::Check>;

}  // namespace

TEST(MissingChecks, NamesEveryDemandedCheckNotDoneAndNothingElse)
{
    TestMouse mouse;
    MissingChecks::Demands all;
    all.allControls = all.doubleClick = all.dragAndDrop = true;
    EXPECT_EQ(MissingChecks::of(all, mouse, false, false),
              (Checks{MissingChecks::LeftButton, MissingChecks::RightButton, MissingChecks::MiddleButton,
                      MissingChecks::Wheel, MissingChecks::TiltLeft, MissingChecks::TiltRight,
                      MissingChecks::DoubleClick, MissingChecks::DragAndDrop}));

    // Used controls go, in whichever state they were left; absent ones were never demanded.
    mouse.state[Mouse::LeftButton] = Active;
    mouse.state[Mouse::VerticalWheel] = Seen;
    mouse.state[Mouse::TiltLeft] = Seen;
    mouse.state[Mouse::TiltRight] = Absent;
    EXPECT_EQ(MissingChecks::of(all, mouse, true, false),
              (Checks{MissingChecks::RightButton, MissingChecks::MiddleButton, MissingChecks::DragAndDrop}));

    // A left click alone: a held button counts as used, as a released one does.
    MissingChecks::Demands left;
    left.leftClick = true;
    mouse.state[Mouse::LeftButton] = Untested;
    EXPECT_EQ(MissingChecks::of(left, mouse, false, false), Checks{MissingChecks::LeftButton});
    mouse.state[Mouse::LeftButton] = Active;
    EXPECT_TRUE(MissingChecks::of(left, mouse, false, false).empty());
    EXPECT_TRUE(MissingChecks::of(MissingChecks::Demands{}, TestMouse(), false, false).empty());
}

TEST(MissingChecks, SideButtonsAreDemandedOnlyByName)
{
    TestMouse mouse;   // counts both side buttons
    MissingChecks::Demands all;
    all.allControls = true;
    for (const Mouse::Control used : {Mouse::LeftButton, Mouse::RightButton, Mouse::MiddleButton, Mouse::VerticalWheel,
                                      Mouse::TiltLeft, Mouse::TiltRight}) {
        mouse.state[used] = Seen;
    }
    EXPECT_TRUE(MissingChecks::of(all, mouse, false, false).empty());

    // By name, even where the system counts none; a held one counts as used.
    MissingChecks::Demands side;
    side.sideButtons = true;
    mouse.state[Mouse::BackButton] = Absent;
    mouse.state[Mouse::ForwardButton] = Absent;
    EXPECT_EQ(MissingChecks::of(side, mouse, false, false),
              (Checks{MissingChecks::BackButton, MissingChecks::ForwardButton}));
    mouse.state[Mouse::BackButton] = Active;
    mouse.state[Mouse::ForwardButton] = Seen;
    EXPECT_TRUE(MissingChecks::of(side, mouse, false, false).empty());
}
