#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TouchpadDescriptors.h"
#include "rawkit/HidTouchDecoder.h"

using hidtest::Contact;
using hidtest::Layout;
using rawkit::HidTouchDecoder;
using rawkit::TouchReport;

namespace {

std::unique_ptr<HidTouchDecoder> decoderFor(const Layout& layout, std::string& error)
{
    std::string why;
    std::vector<std::uint8_t> data = hidtest::preparsed(hidtest::descriptor(layout), why);
    EXPECT_FALSE(data.empty()) << why;
    return HidTouchDecoder::create(std::move(data), error);
}

std::optional<TouchReport> decode(const HidTouchDecoder& decoder, const std::vector<std::uint8_t>& report)
{
    return decoder.decode(report.data(), report.size());
}

}  // namespace

TEST(HidTouchDecoder, ReadsEveryFingerCollectionOfAPadThatReportsWidth)
{
    const Layout layout;
    std::string error;
    const auto decoder = decoderFor(layout, error);
    ASSERT_NE(decoder, nullptr) << error;
    EXPECT_EQ(decoder->layout().x.low, 0);
    EXPECT_EQ(decoder->layout().x.high, 1000);
    EXPECT_EQ(decoder->layout().y.high, 500);
    ASSERT_TRUE(decoder->layout().width.has_value());
    EXPECT_EQ(decoder->layout().width->high, 100);
    EXPECT_EQ(decoder->layout().slots, 2U);
    EXPECT_EQ(decoder->layout().maxContactId, 15U);
    EXPECT_FALSE(decoder->layout().widthMm) << "no physical extent: size unknown";

    auto report = decode(*decoder, hidtest::report(layout, {{true, 300, 250, 10}, {true, 900, 50, 30}}, 2, 1));
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->contactCount, 2U);
    ASSERT_EQ(report->slots.size(), 2U);
    EXPECT_EQ(report->slots[0], (rawkit::ContactReport{0, true, true, 300, 250, 10, {}, {}}));
    EXPECT_EQ(report->slots[1], (rawkit::ContactReport{1, true, true, 900, 50, 30, {}, {}}));
    EXPECT_EQ(report->buttons, 1);

    // The values at the ends of their logical ranges.
    report = decode(*decoder, hidtest::report(layout, {{true, 1000, 500, 100}}, 1, 0));
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->slots[0].x, 1000);
    EXPECT_EQ(report->slots[0].y, 500);
    EXPECT_EQ(report->slots[0].width, 100);
    EXPECT_FALSE(report->slots[1].tip);

    // A report of the other report id is not one of the contacts'.
    EXPECT_FALSE(decode(*decoder, {static_cast<std::uint8_t>(layout.reportId + 1), 0x55}).has_value());
}

TEST(HidTouchDecoder, ReadsAPadWithoutWidthAndWithButtonsOfItsOwn)
{
    Layout layout;
    layout.reportId = 3;
    layout.fingers = 1;
    layout.width = false;
    layout.externalButtons = true;
    std::string error;
    const auto decoder = decoderFor(layout, error);
    ASSERT_NE(decoder, nullptr) << error;
    EXPECT_FALSE(decoder->layout().width.has_value());

    const auto report = decode(*decoder, hidtest::report(layout, {{true, 640, 320, 0}}, 1, 0b110));
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(report->slots[0].x, 640);
    EXPECT_FALSE(report->slots[0].width.has_value());
    EXPECT_TRUE(report->slots[0].confidence) << "a pad without the usage rejects nothing";
    EXPECT_EQ(report->buttons, 0b110);
}

TEST(HidTouchDecoder, APadWithoutXOrYIsRefusedWithWhatIsMissing)
{
    Layout noX;
    noX.x = false;
    std::string error;
    EXPECT_EQ(decoderFor(noX, error), nullptr);
    EXPECT_EQ(error, "its reports have no X usage");

    Layout noY;
    noY.y = false;
    EXPECT_EQ(decoderFor(noY, error), nullptr);
    EXPECT_EQ(error, "its reports have no Y usage");

    EXPECT_EQ(HidTouchDecoder::create({}, error), nullptr);
    EXPECT_EQ(error, "its HID description cannot be read");
}
