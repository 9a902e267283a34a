#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostHarness.h"
#include "harn5/DevicePropertyTypes.h"
#include "harn5/HarnException.h"

using harn5::DeviceCapability;
using harn5::DevicePropertyTypes;
using harn5::DiagDevice;
using harn5::HarnString;
using Type = harn5::DevicePropertyTypes::Type;

namespace {

DiagDevice deviceWith(const std::string& name, const std::string& value)
{
    return DiagDevice(HarnString("Pad"), DeviceCapability::Mouse(), {{HarnString(name), HarnString(value)}});
}

std::string refusal(const DevicePropertyTypes& types, const DiagDevice& device)
{
    try {
        types.check(device);
    } catch (const harn5::HarnException& e) {
        return e.toString().utf8();
    }
    return "(accepted)";
}

DevicePropertyTypes moduleTypes()
{
    DevicePropertyTypes types;
    types.declare("SP_Handle", Type::Int32);
    types.declare("SP_PnPID", Type::Text);
    types.declare("VID", Type::Hex16);
    types.declare("Buttons", Type::Uint32);
    types.declare("HorizontalWheel", Type::Boolean);
    return types;
}

}  // namespace

TEST(DeviceProperties, ValuesAreCheckedAgainstTheTypeTheirReaderDeclared)
{
    struct Case {
        Type type;
        std::vector<std::string> good, bad;
    };
    const std::vector<Case> cases = {
        {Type::Int32, {"0", "1", "-2147483648", "2147483647"}, {"", "abc", "2147483648", "-2147483649", "1.5", " 1"}},
        {Type::Uint32, {"0", "4294967295"}, {"-1", "4294967296", "x"}},
        {Type::Hex16, {"845e", "FFFF", "0001"}, {"845", "845E0", "84G5", ""}},
        {Type::Boolean, {"true", "NO", "1"}, {"maybe", ""}},
        {Type::Text, {"", "anything at all"}, {}},
    };
    for (const Case& c : cases) {
        for (const std::string& text : c.good) {
            EXPECT_TRUE(DevicePropertyTypes::valid(c.type, text)) << DevicePropertyTypes::shortName(c.type) << " " << text;
        }
        for (const std::string& text : c.bad) {
            EXPECT_FALSE(DevicePropertyTypes::valid(c.type, text)) << DevicePropertyTypes::shortName(c.type) << " " << text;
        }
    }
    EXPECT_EQ(refusal(moduleTypes(), deviceWith("SP_Handle", "abc")),
              "device \"Pad\": property SP_Handle \"abc\" is not a decimal 32-bit number");
    EXPECT_EQ(refusal(moduleTypes(), deviceWith("SP_Handle", "12")), "(accepted)");
}

TEST(DeviceProperties, ANameThatIsASlipOfAKnownOneIsRefusedWithTheOneMeant)
{
    const DevicePropertyTypes types = moduleTypes();
    EXPECT_EQ(refusal(types, deviceWith("SP_Hanlde", "1")),
              "device \"Pad\": unknown property \"SP_Hanlde\"; did you mean SP_Handle?");
    EXPECT_NE(refusal(types, deviceWith("sp_handle", "1")).find("did you mean SP_Handle?"), std::string::npos);
    EXPECT_NE(refusal(types, deviceWith("SP_Handel", "1")).find("did you mean SP_Handle?"), std::string::npos);
    EXPECT_NE(refusal(types, deviceWith("SP_PnPIDs", "x")).find("did you mean SP_PnPID?"), std::string::npos);
    // Names far from every known one, and short names, are the user's own.
    EXPECT_EQ(refusal(types, deviceWith("Colour", "blue")), "(accepted)");
    EXPECT_EQ(refusal(types, deviceWith("PID", "zz")), "(accepted)");
    EXPECT_EQ(refusal(types, deviceWith("Handle", "1")), "(accepted)");
}

TEST(DeviceProperties, ATypeIsDeclaredOnceOrAgainAlike)
{
    DevicePropertyTypes types = moduleTypes();
    types.declare("SP_Handle", Type::Int32);
    EXPECT_THROW(types.declare("SP_Handle", Type::Text), harn5::HarnException);
    EXPECT_EQ(types.understood(deviceWith("SP_Handle", "3")), "SP_Handle=3 (int32)");
    EXPECT_EQ(types.understood(deviceWith("Colour", "blue")), "Colour=blue (read by no test)");
}

TEST(DeviceProperties, TheHostRefusesABadDeviceBeforeAnyTestRuns)
{
    HostHarness harness;
    harness.host.declareDeviceProperty("SP_Handle", Type::Int32);
    int ran = 0;
    harness.behaviour = [&ran](const DiagDevice&) {
        ++ran;
        return harn5::TestResult::PASS();
    };
    EXPECT_THROW(harness.run({"--no-system-devices", "--test", "MouseTest", "--test", "TouchpadTest", "--device",
                              "Mouse,name=M", "--device", "SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=abc"}),
                 harn5::HarnException);
    EXPECT_EQ(ran, 0);
    EXPECT_TRUE(harness.host.results().runs().empty());
}

TEST(DeviceProperties, ListDevicesShowsEachDeviceWithWhatTheHostUnderstood)
{
    HostHarness harness;
    harness.host.declareDeviceProperty("SP_Handle", Type::Int32);
    EXPECT_EQ(harness.run({"--no-system-devices", "--list-devices", "--device",
                           "SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=4,Index=2,Kind=touchpad,VID=06CB,"
                           "PID=CE26,name=Pad"}),
              0);
    const std::string out = harness.out.str();
    EXPECT_NE(out.find("  2  touchpad  Pad  06CB:CE26  -  buttons -"), std::string::npos) << out;
    EXPECT_NE(out.find("offered as Mouse+SynapticsMouse+SynapticsTouchPad"), std::string::npos) << out;
    EXPECT_NE(out.find("SP_Handle=4 (int32)"), std::string::npos) << out;
}
