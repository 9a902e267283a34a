#include <gtest/gtest.h>

#include <windows.h>

// mingw's HID headers lack C linkage of their own.
extern "C" {
#include <hidsdi.h>
}

#include <fstream>
#include <string>
#include <vector>

#include "ShippedTouchpads.h"
#include "TouchpadDescriptors.h"
#include "hidcut/CollectionCutter.h"

using hidtest::Shipped;
using hidtest::shippedDescriptor;
using hidtest::kShipped;

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
