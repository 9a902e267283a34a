#include <gtest/gtest.h>

#include <windows.h>

// mingw's HID headers lack C linkage of their own.
extern "C" {
#include <hidsdi.h>
}

#include <fstream>
#include <string>
#include <vector>

#include "TouchpadDescriptors.h"
#include "hidcut/CollectionCutter.h"

namespace {

std::vector<std::uint8_t> shippedDescriptor(const std::string& file)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + file);
    std::vector<std::uint8_t> bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}

struct Shipped {
    const char* file;
    std::uint8_t reportId;   // of the touchpad's input report
};

const Shipped kShipped[] = {
    {"dell-xps9360-touchpad.rdesc", 3}, {"synaptics_06cb_ce08.rdesc", 3}, {"elan_04f3_300b.rdesc", 4},
    {"sipodev_0603_0002.rdesc", 4},     {"microsoft-surfacebook2-touchpad.rdesc", 4},
};

}  // namespace

// The whole descriptor names a mouse to the platform; the cut names the touchpad, and its input
// report is as long as the whole descriptor's report of that id.
TEST(CollectionCutter, TheCutTouchpadHasThePlatformsTouchpadCapsAndReportLength)
{
    for (const Shipped& shipped : kShipped) {
        SCOPED_TRACE(shipped.file);
        const std::vector<std::uint8_t> whole = shippedDescriptor(shipped.file);
        std::string why;
        const auto wholeLengths = hidtest::inputLengths(whole, why);
        ASSERT_EQ(wholeLengths.count(shipped.reportId), 1U) << why;

        std::string error;
        const auto cutter = hidcut::CollectionCutter::parse(whole, error);
        ASSERT_TRUE(cutter.has_value()) << error;
        ASSERT_TRUE(cutter->touchpad().has_value());
        std::vector<std::uint8_t> data = hidtest::preparsed(cutter->cut(*cutter->touchpad()), why);
        ASSERT_FALSE(data.empty()) << why;
        HIDP_CAPS caps{};
        ASSERT_EQ(HidP_GetCaps(reinterpret_cast<PHIDP_PREPARSED_DATA>(data.data()), &caps), HIDP_STATUS_SUCCESS);
        EXPECT_EQ(caps.UsagePage, 0x0D);
        EXPECT_EQ(caps.Usage, 0x05);
        EXPECT_EQ(caps.InputReportByteLength, wholeLengths.at(shipped.reportId));
        EXPECT_GT(caps.FeatureReportByteLength, 0);

        // What the platform makes of the whole descriptor: not a touchpad.
        const std::vector<std::uint8_t> wholeData = hidtest::preparsed(whole, why);
        ASSERT_FALSE(wholeData.empty()) << why;
        ASSERT_EQ(HidP_GetCaps(reinterpret_cast<PHIDP_PREPARSED_DATA>(
                                   const_cast<std::uint8_t*>(wholeData.data())), &caps),
                  HIDP_STATUS_SUCCESS);
        EXPECT_FALSE(caps.UsagePage == 0x0D && caps.Usage == 0x05);
    }
}
