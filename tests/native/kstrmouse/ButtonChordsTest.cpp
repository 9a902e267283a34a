// The classic test's left and right buttons: each its own press and release, a left-handed mouse's
// swapped, and both together standing in for the middle button where the pictures have one.
#include <gtest/gtest.h>

#include "ButtonChords.h"

namespace {

using Effect = ButtonChords::Effect;

class TestMouse : public Mouse {
public:
    TestMouse(std::uint32_t type, bool swapped)
    {
        mouseType = type;
        buttonsSwapped = swapped;
        state[LeftButton] = state[RightButton] = state[MiddleButton] = Untested;
    }
    bool probe() override { return true; }
};

TEST(ButtonChords, EachButtonAloneIsItsOwnAndASwappedMouseSwapsThem)
{
    for (const bool swapped : {false, true}) {
        SCOPED_TRACE(swapped ? "swapped" : "plain");
        TestMouse mouse(3, swapped);
        ButtonChords chords;
        const Mouse::Control primary = swapped ? Mouse::RightButton : Mouse::LeftButton;
        const Mouse::Control secondary = swapped ? Mouse::LeftButton : Mouse::RightButton;
        EXPECT_EQ(chords.leftDown(mouse), Effect::Own);
        EXPECT_EQ(mouse.state[primary], Active);
        EXPECT_TRUE(chords.leftHeld());
        EXPECT_EQ(chords.leftUp(mouse), Effect::Own);
        EXPECT_EQ(mouse.state[primary], Seen);
        EXPECT_EQ(chords.rightDown(mouse), Effect::Own);
        EXPECT_EQ(mouse.state[secondary], Active);
        EXPECT_EQ(chords.rightUp(mouse), Effect::Own);
        EXPECT_EQ(mouse.state[secondary], Seen);
        EXPECT_EQ(mouse.state[Mouse::MiddleButton], Untested);
        EXPECT_FALSE(chords.middleMimicked());
    }
}

TEST(ButtonChords, BothHeldStandInForTheMiddleInEitherOrder)
{
    for (const bool leftFirst : {true, false}) {
        SCOPED_TRACE(leftFirst ? "left first" : "right first");
        TestMouse mouse(3, false);
        ButtonChords chords;
        EXPECT_EQ(leftFirst ? chords.leftDown(mouse) : chords.rightDown(mouse), Effect::Own);
        EXPECT_EQ(leftFirst ? chords.rightDown(mouse) : chords.leftDown(mouse), Effect::Chord);
        EXPECT_EQ(mouse.state[Mouse::MiddleButton], Active);
        // The first button counts as used; neither shows as held any more.
        EXPECT_EQ(mouse.state[leftFirst ? Mouse::LeftButton : Mouse::RightButton], Seen);
        EXPECT_TRUE(chords.middleMimicked());
        EXPECT_EQ(chords.leftUp(mouse), Effect::Chord);
        EXPECT_EQ(mouse.state[Mouse::MiddleButton], Seen);
        EXPECT_EQ(chords.rightUp(mouse), Effect::Own) << "the last one up is a release of its own";
        EXPECT_FALSE(chords.leftHeld() || chords.rightHeld());
    }
}

TEST(ButtonChords, ThePicturesWithoutAMiddleTakeNoChord)
{
    TestMouse mouse(1, false);
    ButtonChords chords;
    chords.leftDown(mouse);
    EXPECT_EQ(chords.rightDown(mouse), Effect::None);
    EXPECT_EQ(chords.leftUp(mouse), Effect::None);
    EXPECT_EQ(mouse.state[Mouse::MiddleButton], Untested);
    EXPECT_EQ(mouse.state[Mouse::RightButton], Untested);
    EXPECT_FALSE(chords.middleMimicked());
}

}  // namespace
