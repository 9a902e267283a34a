// The mouse model against system metrics that the test chooses.
#include <gtest/gtest.h>

#include <map>

#include "SystemMetrics.h"
#include "WindowsMouse.h"

namespace {
std::map<int, int> g_metrics;  // what "the system" reports during one case
}

extern "C" int GetSystemMetrics(int index)
{
    const auto it = g_metrics.find(index);
    return it == g_metrics.end() ? 0 : it->second;
}

namespace {

struct ProbeCase {
    const char* name;
    std::map<int, int> metrics;
    bool present;
    unsigned int buttonCount;
    bool swapped;
    unsigned int mouseType;
    unsigned int state[Mouse::ControlCount];
};

class WindowsMouseProbe : public testing::TestWithParam<ProbeCase> {};

TEST_P(WindowsMouseProbe, DescribesWhatTheSystemReports)
{
    const ProbeCase& c = GetParam();
    g_metrics = c.metrics;
    WindowsMouse mouse;
    EXPECT_EQ(mouse.probe(), c.present);
    EXPECT_EQ(mouse.buttonCount, c.buttonCount);
    EXPECT_EQ(mouse.buttonsSwapped, c.swapped);
    EXPECT_EQ(mouse.mouseType, c.mouseType);
    for (int i = 0; i < Mouse::ControlCount; ++i) {
        EXPECT_EQ(mouse.state[i], c.state[i]) << "control " << i;
    }
}

constexpr int kPresent = SM_MOUSEPRESENT, kSwap = SM_SWAPBUTTON, kButtons = SM_CMOUSEBUTTONS,
              kWheel = SM_MOUSEWHEELPRESENT, kTilt = SM_MOUSEHORIZONTALWHEELPRESENT;

INSTANTIATE_TEST_SUITE_P(
    Metrics, WindowsMouseProbe,
    testing::Values(
        ProbeCase{"NoMouse", {{kSwap, 1}, {kWheel, 1}, {kButtons, 3}}, false, 0, false, 0, {0, 0, 0, 0, 0, 0, 0, 0}},
        ProbeCase{"TwoButtons", {{kPresent, 1}, {kButtons, 2}}, true, 2, false, 1, {1, 1, 0, 0, 0, 0, 0, 0}},
        ProbeCase{"WheelNoTilt", {{kPresent, 1}, {kWheel, 1}, {kButtons, 3}}, true, 3, false, 3, {1, 1, 1, 1, 0, 0, 0, 0}},
        ProbeCase{"WheelAndTilt", {{kPresent, 1}, {kWheel, 1}, {kTilt, 1}, {kButtons, 5}}, true, 5, false, 3,
                  {1, 1, 1, 1, 1, 1, 1, 1}},
        ProbeCase{"FourButtonsHaveTheBackButtonOnly", {{kPresent, 1}, {kWheel, 1}, {kButtons, 4}}, true, 4, false, 3,
                  {1, 1, 1, 1, 0, 0, 1, 0}},
        ProbeCase{"TiltWithoutWheel", {{kPresent, 1}, {kTilt, 1}, {kButtons, 2}}, true, 2, false, 1, {1, 1, 0, 0, 1, 1, 0, 0}},
        ProbeCase{"SwappedButtonsStayUntested", {{kPresent, 1}, {kSwap, 1}, {kButtons, 2}}, true, 2, true, 1,
                  {1, 1, 0, 0, 0, 0, 0, 0}},
        ProbeCase{"EightButtonsAreNotBelieved", {{kPresent, 1}, {kWheel, 1}, {kButtons, 8}}, true, 0, false, 3,
                  {1, 1, 1, 1, 0, 0, 0, 0}},
        ProbeCase{"NegativeCountIsHuge", {{kPresent, 1}, {kButtons, -1}}, true, 0, false, 1, {1, 1, 0, 0, 0, 0, 0, 0}}),
    [](const testing::TestParamInfo<ProbeCase>& param) { return std::string(param.param.name); });

TEST(WindowsMouse, SecondProbeNeverUnswapsButtons)
{
    g_metrics = {{kPresent, 1}, {kSwap, 1}};
    WindowsMouse mouse;
    mouse.probe();
    g_metrics = {{kPresent, 1}};
    mouse.probe();
    EXPECT_TRUE(mouse.buttonsSwapped);
}

}  // namespace
