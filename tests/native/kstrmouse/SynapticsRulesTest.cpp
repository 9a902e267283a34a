// The touchpad and TrackPoint rules on plain device values: exclusion matching, seen flags and
// completion, marker decisions and placement.
#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "PnPIdExclusion.h"
#include "TouchPadModel.h"
#include "TrackpointModel.h"

namespace {

struct ExclusionCase {
    const char* pnpId;
    const char* entry;
    bool matches;
};

class PnPIdExclusionTest : public testing::TestWithParam<ExclusionCase> {};

TEST_P(PnPIdExclusionTest, MatchesWholeTrimmedEntryIgnoringCase)
{
    EXPECT_EQ(PnPIdExclusion::matches(ksx::String(GetParam().pnpId), ksx::String(GetParam().entry)),
              GetParam().matches)
        << "id \"" << GetParam().pnpId << "\" entry \"" << GetParam().entry << "\"";
}

INSTANTIATE_TEST_SUITE_P(
    Entries, PnPIdExclusionTest,
    testing::Values(ExclusionCase{"ACPI\\LEN0049", "ACPI\\LEN0049", true},
                    ExclusionCase{"ACPI\\LEN0049", " \tacpi\\len0049  ", true},
                    ExclusionCase{" ACPI\\LEN0049", "ACPI\\LEN0049", false},   // the id is not trimmed
                    ExclusionCase{"ACPI\\LEN0049 ", "ACPI\\LEN0049", false},
                    ExclusionCase{"ACPI\\LEN0049", "ACPI\\LEN00", false},      // prefix
                    ExclusionCase{"ACPI\\LEN0049", "LEN0049", false},          // substring
                    ExclusionCase{"ACPI\\LEN0049", "ACPI\\LEN*", false},       // no wildcards
                    ExclusionCase{"", "   ", false},
                    ExclusionCase{"", "ACPI\\LEN0049", false},
                    ExclusionCase{"ACPI\\LEN0049", "", false},
                    ExclusionCase{"ACPI\\LEN0049", "   ", false}));

SynapticsDeviceState pad(int x, int y, int width)
{
    SynapticsDeviceState state;
    state.xLo = 1000;
    state.xHi = 6000;
    state.yLo = 1000;
    state.yHi = 5000;
    state.fingerX = x;
    state.fingerY = y;
    state.fingerWidth = width;
    return state;
}

SynapticsDeviceState buttons(bool left, bool middle, bool right)
{
    SynapticsDeviceState state = pad(1000, 1000, 0);
    state.leftPressed = left;
    state.middlePressed = middle;
    state.rightPressed = right;
    return state;
}

SynapticsDeviceState finger()
{
    SynapticsDeviceState state = pad(3000, 3000, 4);
    state.fingerPresent = true;
    return state;
}

TEST(TouchPadModel, CompletesWithFingerLeftAndRightInAnyOrder)
{
    TouchPadModel model(true);
    model.onPacket(buttons(false, false, true));
    model.onPacket(SynapticsDeviceState{});
    EXPECT_FALSE(model.isTestComplete());
    model.onPacket(buttons(true, false, false));
    EXPECT_FALSE(model.isTestComplete()) << "no finger yet";
    model.onPacket(finger());
    EXPECT_TRUE(model.isTestComplete());
    model.onPacket(SynapticsDeviceState{});
    EXPECT_TRUE(model.isTestComplete()) << "the flags never go back";
}

TEST(TouchPadModel, ButtonsNotShownAreNotDemanded)
{
    TouchPadModel model(false);
    model.onPacket(buttons(true, true, true));
    EXPECT_FALSE(model.isTestComplete()) << "the finger is still demanded";
    model.onPacket(finger());
    EXPECT_TRUE(model.isTestComplete());
}

TEST(TouchPadModel, MiddleButtonCountsAsLeftAndRight)
{
    TouchPadModel model(true);
    const SynapticsDeviceState middle = buttons(false, true, false);
    model.onPacket(middle);
    EXPECT_TRUE(model.leftSeen());
    EXPECT_TRUE(model.rightSeen());
    EXPECT_FALSE(model.fingerSeen());
    EXPECT_TRUE(TouchPadModel::leftPressed(middle));
    EXPECT_TRUE(TouchPadModel::rightPressed(middle));
    EXPECT_FALSE(TouchPadModel::leftPressed(buttons(false, false, true)));
    EXPECT_FALSE(TouchPadModel::rightPressed(buttons(true, false, false)));
}

TEST(TouchPadModel, StatusValuesCountXFromLowAndYFromHigh)
{
    EXPECT_EQ(TouchPadModel::x(pad(1500, 4000, 0)), 500);
    EXPECT_EQ(TouchPadModel::y(pad(1500, 4000, 0)), 1000);
    SynapticsDeviceState extreme = pad(INT_MAX, INT_MIN, 0);
    extreme.xLo = INT_MIN;
    extreme.yHi = INT_MAX;
    EXPECT_EQ(TouchPadModel::x(extreme), -1) << "wraps instead of overflowing";
    EXPECT_EQ(TouchPadModel::y(extreme), -1);
}

TEST(TouchPadModel, MarkerShowsMotionAndLandingButNotAFingerAtRest)
{
    TouchPadModel model(true);
    SynapticsDeviceState resting = finger();
    EXPECT_FALSE(model.shouldDrawMarker(resting)) << "the first paint needs motion";
    model.notePainted(true);

    SynapticsDeviceState lifted = pad(3000, 3000, 0);
    EXPECT_FALSE(model.shouldDrawMarker(lifted));
    model.notePainted(false);

    EXPECT_TRUE(model.shouldDrawMarker(resting)) << "a finger that just landed";
    model.notePainted(true);
    EXPECT_FALSE(model.shouldDrawMarker(resting)) << "the same finger resting";

    SynapticsDeviceState moving = resting;
    moving.fingerMotion = true;
    EXPECT_TRUE(model.shouldDrawMarker(moving));
}

struct MarkerCase {
    const char* name;
    SynapticsDeviceState state;
    PixelRect expected;
};

class TouchPadMarkerTest : public testing::TestWithParam<MarkerCase> {};

TEST_P(TouchPadMarkerTest, Placement)
{
    const PixelRect rect = TouchPadModel::marker(GetParam().state);
    const PixelRect& expected = GetParam().expected;
    EXPECT_EQ(rect.left, expected.left);
    EXPECT_EQ(rect.top, expected.top);
    EXPECT_EQ(rect.width, expected.width);
    EXPECT_EQ(rect.height, expected.height);
}

SynapticsDeviceState emptyRange()
{
    SynapticsDeviceState state = pad(1234, 777, 2);
    state.xHi = state.xLo;
    state.yHi = state.yLo;
    return state;
}

INSTANTIATE_TEST_SUITE_P(
    Fingers, TouchPadMarkerTest,
    testing::Values(
        // Width 0: nothing to see, placed at the finger itself.
        MarkerCase{"WidthZero", pad(3500, 3000, 0), {150, 75, 0, 0}},
        // Width 1: an 8 x 8 square, corner 4 up and left of the finger.
        MarkerCase{"WidthOne", pad(3500, 3000, 1), {146, 71, 8, 8}},
        // High Y at the top; x at the low end is the left edge.
        MarkerCase{"LowXHighY", pad(1000, 5000, 2), {-8, -8, 16, 16}},
        MarkerCase{"HighXLowY", pad(6000, 1000, 5), {280, 130, 40, 40}},
        // Odd size: half rounds toward zero; truncation toward zero of 3.0 - 4 and 147.0 - 4.
        MarkerCase{"Truncation", pad(1050, 1040, 1), {-1, 144, 8, 8}},
        MarkerCase{"EmptyRangeIsTheMiddle", emptyRange(), {142, 67, 16, 16}},
        MarkerCase{"NegativeWidthIsNoSize", pad(3500, 3000, -3), {150, 75, 0, 0}}),
    [](const testing::TestParamInfo<MarkerCase>& each) { return std::string(each.param.name); });

TEST(TouchPadModel, ReadingsFarOutsideTheRangeStayRepresentable)
{
    SynapticsDeviceState wild = pad(INT_MAX, INT_MIN, INT_MAX);
    wild.xLo = 0;
    wild.xHi = 1;
    wild.yLo = 0;
    wild.yHi = 1;
    const PixelRect rect = TouchPadModel::marker(wild);
    EXPECT_EQ(rect.width, INT_MAX);
    EXPECT_LE(rect.left, 1000000);
    EXPECT_GE(rect.top, -1000000);
}

SynapticsDeviceState stick(int x, int y)
{
    SynapticsDeviceState state;
    state.xLo = -100;
    state.xHi = 100;
    state.yLo = -100;
    state.yHi = 100;
    state.stickX = x;
    state.stickY = y;
    return state;
}

TEST(TrackpointModel, CompletionWithButtonsNeedsMovementAndAllThree)
{
    TrackpointModel model(true);
    SynapticsDeviceState pressed = stick(0, 0);
    pressed.leftPressed = pressed.rightPressed = true;
    model.onPacket(pressed);
    model.onPacket(stick(0, -1));
    EXPECT_TRUE(model.moved());
    EXPECT_FALSE(model.isTestComplete()) << "middle missing";
    pressed = stick(0, 0);
    pressed.middlePressed = true;
    model.onPacket(pressed);
    EXPECT_TRUE(model.isTestComplete());
}

TEST(TrackpointModel, CompletionWithoutButtonsNeedsOneNonzeroReading)
{
    TrackpointModel model(false);
    SynapticsDeviceState pressed = stick(0, 0);
    pressed.leftPressed = pressed.middlePressed = pressed.rightPressed = true;
    model.onPacket(pressed);
    EXPECT_FALSE(model.isTestComplete()) << "buttons alone are no movement";
    model.onPacket(stick(3, 0));
    EXPECT_TRUE(model.isTestComplete());

    TrackpointModel buttonsShown(true);
    buttonsShown.onPacket(stick(3, 0));
    EXPECT_FALSE(buttonsShown.isTestComplete());
    buttonsShown.onPacket(pressed);   // seen even though no movement came with it
    EXPECT_TRUE(buttonsShown.isTestComplete());
}

TEST(TrackpointModel, MarkerPlacement)
{
    // The window the dialog creates: 300 x 200, a 300 x 140 drawing area.
    const PixelRect centre = TrackpointModel::marker(stick(0, 0), 300, 200);
    EXPECT_EQ(centre.left, 128);
    EXPECT_EQ(centre.top, 48);
    EXPECT_EQ(centre.width, 45);
    const PixelRect atLow = TrackpointModel::marker(stick(-100, -100), 300, 200);
    EXPECT_EQ(atLow.left, -22) << "half outside the area";
    EXPECT_EQ(atLow.top, 118) << "low Y at the bottom";
    const PixelRect atHigh = TrackpointModel::marker(stick(100, 100), 300, 200);
    EXPECT_EQ(atHigh.left, 278);
    EXPECT_EQ(atHigh.top, -22);

    SynapticsDeviceState empty = stick(40, -40);
    empty.xHi = empty.xLo;
    empty.yHi = empty.yLo;
    const PixelRect middle = TrackpointModel::marker(empty, 300, 200);
    EXPECT_EQ(middle.left, 128);
    EXPECT_EQ(middle.top, 48);
}

TEST(TrackpointModel, ButtonRowOfTheDialogsWindow)
{
    const PixelRect area = TrackpointModel::drawingArea(300, 200);
    EXPECT_EQ(area.width, 300);
    EXPECT_EQ(area.height, 140);
    const std::vector<PixelRect> row = {TrackpointModel::leftButton(300, 200),
                                        TrackpointModel::centerButton(300, 200),
                                        TrackpointModel::rightButton(300, 200)};
    const int expected[3][2] = {{1, 155}, {90, 142}, {179, 155}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(row[i].left, expected[i][0]) << i;
        EXPECT_EQ(row[i].top, expected[i][1]) << i;
        EXPECT_EQ(row[i].width, 120) << i;
        EXPECT_EQ(row[i].height, 45) << i;
    }
}

}  // namespace
