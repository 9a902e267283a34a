// The device pictures as they reach the screen: the finger marker's landing and resting rules,
// its size by finger width, the buttons a middle press lights, and the stick at its range's edge.
#include <gtest/gtest.h>

#include <ostream>

#include <optional>

#include "SynapticsHarness.h"
#include "SynapticsSessions.h"
#include "resource.h"

namespace {

using namespace syntest;

// The centre of the pad (finger at 3500, 3000) and points of the pictures.
constexpr POINT kPadCentre = {150, 75};
constexpr POINT kLeftButton = {74, 174};
constexpr POINT kRightButton = {225, 174};

struct PadCase {
    const char* name;
    std::string packets;
    const wchar_t* lastWidth;       // the width value that shows the replay is over
    bool markerAtCentre;
    std::optional<POINT> clearOfMarker;
    bool leftLit;
    bool rightLit;
};

void PrintTo(const PadCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class TouchpadPicture : public testing::TestWithParam<PadCase> {};

TEST_P(TouchpadPicture, ShowsWhatTheLastPacketCalls)
{
    const PadCase& c = GetParam();
    const long h = addDevice(kTouchpadHeader + c.packets, SynDeviceTouchPad);
    bool checked = false;
    runHost({"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h))},
            // The pad repaints within each packet: once the panel shows the last one, so does the picture.
            {waitForText(IDC_SYN_ROW3_VALUE, c.lastWidth), [&](HWND dialog) {
                 const HWND picture = devicePicture(dialog);
                 EXPECT_EQ(isBlueish(pixel(picture, kPadCentre.x, kPadCentre.y)), c.markerAtCentre);
                 if (c.clearOfMarker) {
                     EXPECT_FALSE(isBlueish(pixel(picture, c.clearOfMarker->x, c.clearOfMarker->y)));
                 }
                 EXPECT_EQ(isBlueish(pixel(picture, kLeftButton.x, kLeftButton.y)), c.leftLit);
                 EXPECT_EQ(isBlueish(pixel(picture, kRightButton.x, kRightButton.y)), c.rightLit);
                 checked = true;
                 click(dialog, IDCANCEL);
                 return true;
             }});
    EXPECT_TRUE(checked);
}

INSTANTIATE_TEST_SUITE_P(
    Packets, TouchpadPicture,
    testing::Values(
        // A finger that stays without moving: the pad is shown bare.
        PadCase{"Resting", "0 1 3500 3000 4 0 0 0 -\n20 1 3500 3000 4 0 0 0 -\n", L"4", false, {}, false, false},
        // A finger that lands is shown at once, motion or not.
        PadCase{"Landing", "0 0 0 0 0 0 0 0 -\n20 1 3500 3000 4 0 0 0 -\n", L"4", true, {}, false, false},
        PadCase{"Moving", "0 1 3500 3000 4 1 0 0 -\n", L"4", true, {}, false, false},
        // Width 0: a marker of no size; width 1: 8 x 8 around the finger, nothing 6 pixels off.
        PadCase{"WidthZero", "0 1 3500 3000 0 1 0 0 -\n", L"0", false, {}, false, false},
        PadCase{"WidthOne", "0 1 3500 3000 1 1 0 0 -\n", L"1", true, POINT{156, 75}, false, false},
        PadCase{"MiddleLightsBoth", "0 1 3500 3000 2 1 0 0 M\n", L"2", true, {}, true, true},
        PadCase{"LeftOnly", "0 1 3500 3000 2 1 0 0 L\n", L"2", true, {}, true, false}),
    [](const testing::TestParamInfo<PadCase>& each) { return std::string(each.param.name); });

struct StickCase {
    const char* name;
    bool excluded;
    const char* packet;
    const wchar_t* lastX;
    POINT marker;       // a point inside the stick marker
    POINT background;   // a point of the drawing area the marker leaves free
    bool leftLit;
};

void PrintTo(const StickCase& c, std::ostream* os) { *os << c.name; }   // named in test listings

class TrackpointPicture : public testing::TestWithParam<StickCase> {};

TEST_P(TrackpointPicture, PlacesTheStickAndTheButtons)
{
    const StickCase& c = GetParam();
    const long h = addDevice(kTrackpointHeader + c.packet, SynDeviceTrackpoint);
    std::vector<std::string> options = {"--test", "TrackPointTest", "--device",
                                        deviceOption("trackpoint", "SP_Handle=" + std::to_string(h) + ",SP_PnPID=P1")};
    if (c.excluded) {
        options.insert(options.end(), {"--param", "ExcludedThreeButtonDisplayByPnPID=P1"});
    }
    bool checked = false;
    runHost(options, {waitForText(IDC_SYN_X_VALUE, c.lastX),
                      // The picture follows on its own 50 ms timer: wait for the marker to arrive.
                      [&](HWND dialog) { return isBlueish(pixel(devicePicture(dialog), c.marker.x, c.marker.y)); },
                      [&](HWND dialog) {
                          const HWND picture = devicePicture(dialog);
                          EXPECT_EQ(pixel(picture, c.background.x, c.background.y), RGB(240, 240, 240));
                          // The left button at (1, 155), 120 x 45.
                          EXPECT_EQ(isBlueish(pixel(picture, 60, 177)), c.leftLit);
                          checked = true;
                          click(dialog, IDCANCEL);
                          return true;
                      }});
    EXPECT_TRUE(checked);
}

INSTANTIATE_TEST_SUITE_P(
    Readings, TrackpointPicture,
    testing::Values(
        // At xLo the marker's left edge is at -22: its centre sits on the area's left edge.
        StickCase{"AtLowX", false, "0 0 0 0 0 0 -100 0 L\n", L"-100", {16, 70}, {40, 70}, true},
        StickCase{"Centre", false, "0 0 0 0 0 0 0 0 -\n0 0 0 0 0 0 0 0 -\n", L"0", {165, 70}, {110, 70}, false},
        // Buttons not displayed: nothing is drawn there even while one is held.
        StickCase{"ButtonsHidden", true, "0 0 0 0 0 0 100 100 L\n", L"100", {286, 2}, {150, 70}, false}),
    [](const testing::TestParamInfo<StickCase>& each) { return std::string(each.param.name); });

}  // namespace
