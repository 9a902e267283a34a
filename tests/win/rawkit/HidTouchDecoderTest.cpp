#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TouchpadDescriptors.h"
#include "rawkit/HidTouchDecoder.h"

using hidtest::Contact;
using hidtest::Layout;
using rawkit::HidTouchDecoder;
using rawkit::TouchSample;

namespace {

std::unique_ptr<HidTouchDecoder> decoderFor(const Layout& layout, std::string& error)
{
    std::string why;
    std::vector<std::uint8_t> data = hidtest::preparsed(hidtest::descriptor(layout), why);
    EXPECT_FALSE(data.empty()) << why;
    return HidTouchDecoder::create(std::move(data), error);
}

std::optional<TouchSample> decode(const HidTouchDecoder& decoder, const std::vector<std::uint8_t>& report)
{
    return decoder.decode(report.data(), report.size());
}

}  // namespace

TEST(HidTouchDecoder, ReadsTheFirstContactOfAPadThatReportsWidth)
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

    // One contact.
    auto sample = decode(*decoder, hidtest::report(layout, {{true, 200, 100, 40}}, 1, 0));
    ASSERT_TRUE(sample.has_value());
    EXPECT_TRUE(sample->tip);
    EXPECT_EQ(sample->contactCount, 1U);
    EXPECT_EQ(sample->x, 200);
    EXPECT_EQ(sample->y, 100);
    EXPECT_EQ(sample->width, 40);
    EXPECT_FALSE(sample->button1);

    // Two contacts: the first one is read, the count says two.
    sample = decode(*decoder, hidtest::report(layout, {{true, 300, 250, 10}, {true, 900, 50, 30}}, 2, 0));
    ASSERT_TRUE(sample.has_value());
    EXPECT_EQ(sample->contactCount, 2U);
    EXPECT_EQ(sample->x, 300);
    EXPECT_EQ(sample->width, 10);

    // The values at the ends of their logical ranges, and the pad's button.
    sample = decode(*decoder, hidtest::report(layout, {{true, 1000, 500, 100}}, 1, 1));
    ASSERT_TRUE(sample.has_value());
    EXPECT_EQ(sample->x, 1000);
    EXPECT_EQ(sample->y, 500);
    EXPECT_EQ(sample->width, 100);
    EXPECT_TRUE(sample->button1);
    sample = decode(*decoder, hidtest::report(layout, {{true, 0, 0, 0}}, 1, 0));
    ASSERT_TRUE(sample.has_value());
    EXPECT_EQ(sample->x, 0);
    EXPECT_EQ(sample->y, 0);

    // The finger lifted.
    sample = decode(*decoder, hidtest::report(layout, {{false, 0, 0, 0}}, 0, 0));
    ASSERT_TRUE(sample.has_value());
    EXPECT_FALSE(sample->tip);
    EXPECT_EQ(sample->contactCount, 0U);

    // A report of the other report id is not one of the contact's.
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

    const auto sample = decode(*decoder, hidtest::report(layout, {{true, 640, 320, 0}}, 1, 0b110));
    ASSERT_TRUE(sample.has_value());
    EXPECT_EQ(sample->x, 640);
    EXPECT_EQ(sample->y, 320);
    EXPECT_FALSE(sample->width.has_value());
    EXPECT_FALSE(sample->button1);
    EXPECT_TRUE(sample->button2);
    EXPECT_TRUE(sample->button3);
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
