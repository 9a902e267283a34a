#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "rawkit/DeviceInfo.h"
#include "rawkit/InterfacePath.h"
#include "rawkit/KnownSticks.h"

using rawkit::DeviceInfo;
using rawkit::DeviceKind;
using rawkit::InterfacePath;
using rawkit::KnownSticks;

TEST(InterfacePath, HardwareIdIsTheEnumeratorAndDeviceIdOfThePath)
{
    EXPECT_EQ(InterfacePath::hardwareId(
                  R"(\\?\HID#VID_045E&PID_0823&MI_01#7&2a1b&0&0000#{378de44c-56ef-11d1-bc8c-00a0c91405dd})"),
              R"(HID\VID_045E&PID_0823&MI_01)");
    EXPECT_EQ(InterfacePath::hardwareId(R"(\\?\hid#vid_06cb&pid_ce26&col01#5&1#{4d1e55b2})"),
              R"(HID\VID_06CB&PID_CE26&COL01)");
    EXPECT_EQ(InterfacePath::hardwareId(R"(\\?\ACPI#LEN0300#4&1b3b&0#{378de44c})"), R"(ACPI\LEN0300)");
    // A path of another shape is its own id, rather than a guess.
    EXPECT_EQ(InterfacePath::hardwareId("RemoteDesktop pointer"), "RemoteDesktop pointer");
    EXPECT_EQ(InterfacePath::hardwareId(R"(\\?\HID#VID_045E)"), R"(\\?\HID#VID_045E)");
}

TEST(InterfacePath, VendorAndProductAreFourHexDigitsOfTheirOwnField)
{
    const std::string path = R"(\\?\HID#vid_17ef&pid_6047&mi_01#8&1#{378de44c})";
    EXPECT_EQ(InterfacePath::vendorId(path), 0x17EF);
    EXPECT_EQ(InterfacePath::productId(path), 0x6047);
    EXPECT_EQ(InterfacePath::vidPid(path), "17EF:6047");

    EXPECT_EQ(InterfacePath::vendorId(R"(\\?\HID#VID_12G4&PID_0001#1)"), std::nullopt);   // not hex
    EXPECT_EQ(InterfacePath::vendorId(R"(\\?\HID#VID_12)"), std::nullopt);                // cut short
    EXPECT_EQ(InterfacePath::productId(R"(\\?\HID#XPID_1234#1)"), std::nullopt);          // part of a word
    EXPECT_EQ(InterfacePath::vidPid(R"(\\?\ACPI#LEN0300#4)"), "");
}

TEST(KnownSticks, EntriesMatchTheDeviceOrItsInterfacesInAnyCase)
{
    const KnownSticks sticks = KnownSticks::parse("# sticks\r\n\r\n  hid\\vid_17ef&pid_6009  # keyboard\r\n"
                                                  "ACPI\\LEN0300\n");
    ASSERT_EQ(sticks.ids().size(), 2U);
    EXPECT_TRUE(sticks.contains(R"(HID\VID_17EF&PID_6009)"));
    EXPECT_TRUE(sticks.contains(R"(HID\VID_17EF&PID_6009&MI_01)"));
    EXPECT_TRUE(sticks.contains(R"(acpi\len0300)"));
    EXPECT_FALSE(sticks.contains(R"(HID\VID_17EF&PID_60091)"));   // another product
    EXPECT_FALSE(sticks.contains(R"(HID\VID_17EF)"));
    EXPECT_FALSE(KnownSticks().contains(R"(HID\VID_17EF&PID_6009)"));
}

TEST(KnownSticks, TheShippedListParses)
{
    std::ifstream file(std::string(KSTR_SOURCE_DIR) + "/resources/pointing-sticks.txt", std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const KnownSticks shipped = KnownSticks::parse(text);
    EXPECT_FALSE(shipped.ids().empty());
    for (const std::string& id : shipped.ids()) {
        EXPECT_EQ(id.find(' '), std::string::npos) << id;
    }
}

TEST(DeviceKinds, RawMiceAreMiceOrSticksAndDigitizersTouchpadsOrOther)
{
    const KnownSticks sticks({R"(HID\VID_17EF&PID_6009)"});
    DeviceInfo device;
    device.rawMouse = true;
    device.hardwareId = R"(HID\VID_045E&PID_0823)";
    EXPECT_EQ(rawkit::kindOf(device, sticks), DeviceKind::Mouse);
    device.hardwareId = R"(HID\VID_17EF&PID_6009&MI_01)";
    EXPECT_EQ(rawkit::kindOf(device, sticks), DeviceKind::PointingStick);

    device = DeviceInfo{};
    device.usagePage = 0x0D;
    device.usage = 0x05;
    EXPECT_EQ(rawkit::kindOf(device, sticks), DeviceKind::Touchpad);
    device.usage = 0x04;   // a touch screen
    EXPECT_EQ(rawkit::kindOf(device, sticks), DeviceKind::Other);
    EXPECT_STREQ(rawkit::kindName(DeviceKind::PointingStick), "pointing stick");

    EXPECT_TRUE(rawkit::isPointingCollection(0x0D, 0x02));    // a pen
    EXPECT_TRUE(rawkit::isPointingCollection(0x01, 0x01));
    EXPECT_FALSE(rawkit::isPointingCollection(0x01, 0x06));   // a keyboard
    EXPECT_FALSE(rawkit::isPointingCollection(0x0C, 0x01));   // consumer controls
}
