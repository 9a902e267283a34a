// The touchpad and mouse decoders on descriptors written here: what a pad declares less of than
// the shipping ones (no contact id, no confidence, no count), what it declares more of (width,
// height, pressure, buttons as an array), and the descriptors they refuse by name.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ReportBytes.h"
#include "hidrd/DescriptorError.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/MouseReportDecoder.h"
#include "hidrd/TouchReportDecoder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

template <typename Decoder>
std::string refusal(const Bytes& bytes)
{
    try {
        Decoder decoder(hidrd::DescriptorParser::parse(bytes));
    } catch (const hidrd::DescriptorError& error) {
        return error.what();
    }
    return "(accepted)";
}

TEST(WrittenDecoders, APadWithoutIdsConfidenceOrCountButWithSizesAndAButtonArray)
{
    const Bytes bytes = {
        0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01,
        0x09, 0x22, 0xA1, 0x02,                                     // two fingers, no report id
        0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x01, 0x09, 0x42, 0x81, 0x02, 0x95, 0x07, 0x81, 0x03,
        0x05, 0x01, 0x26, 0xFF, 0x00, 0x75, 0x08, 0x95, 0x02, 0x09, 0x30, 0x09, 0x31, 0x81, 0x02,
        0x05, 0x0D, 0x09, 0x48, 0x09, 0x49, 0x09, 0x30, 0x95, 0x03, 0x81, 0x02,
        0xC0,
        0x09, 0x22, 0xA1, 0x02,
        0x25, 0x01, 0x75, 0x01, 0x95, 0x01, 0x09, 0x42, 0x81, 0x02, 0x95, 0x07, 0x81, 0x03,
        0x05, 0x01, 0x26, 0xFF, 0x00, 0x75, 0x08, 0x95, 0x02, 0x09, 0x30, 0x09, 0x31, 0x81, 0x02,
        0xC0,
        0x05, 0x09, 0x19, 0x01, 0x29, 0x03, 0x15, 0x01, 0x25, 0x03, 0x95, 0x02, 0x81, 0x00,   // two of three buttons
        0xC0,
    };
    const hidrd::TouchReportDecoder decoder(hidrd::DescriptorParser::parse(bytes));
    EXPECT_EQ(decoder.layout().slots, 2U);
    EXPECT_FALSE(decoder.layout().widthMm) << "no physical extents: size unknown";
    EXPECT_EQ(decoder.layout().maxContactId, 0xFFFFFFFFU);
    ASSERT_TRUE(decoder.layout().width);
    EXPECT_EQ(decoder.layout().width->high, 255);
    const Bytes report = ReportBytes(0, 11)
                             .put(0, 1, 1).put(8, 8, 40).put(16, 8, 50).put(24, 8, 7).put(32, 8, 9).put(40, 8, 99)
                             .put(48, 1, 1).put(56, 8, 200).put(64, 8, 210)
                             .put(72, 8, 3).put(80, 8, 1)
                             .bytes();
    rawkit::TouchReport decoded;
    ASSERT_EQ(decoder.decode(report.data(), report.size(), decoded), hidrd::TouchReportDecoder::Outcome::Decoded);
    ASSERT_EQ(decoded.slots.size(), 2U);
    EXPECT_EQ(decoded.slots[1].id, 1U) << "without an id a slot is its own contact";
    EXPECT_TRUE(decoded.slots[0].confidence) << "without the usage every contact is confident";
    EXPECT_EQ(decoded.slots[0].width, 7);
    EXPECT_EQ(decoded.slots[0].height, 9);
    EXPECT_EQ(decoded.slots[0].pressure, 99);
    EXPECT_FALSE(decoded.slots[1].width);
    EXPECT_EQ(decoded.slots[1].x, 200);
    EXPECT_FALSE(decoded.contactCount);
    EXPECT_EQ(decoded.buttons, 0b101);
}

TEST(WrittenDecoders, RefuseADescriptorWithoutWhatTheyDecode)
{
    using Touch = hidrd::TouchReportDecoder;
    using Mouse = hidrd::MouseReportDecoder;
    const Bytes mouse = {0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x75, 0x08, 0x95, 0x02,
                         0x09, 0x30, 0x09, 0x31, 0x81, 0x06, 0xC0};
    EXPECT_EQ(refusal<Touch>(mouse),
              "the descriptor has no touchpad collection (Digitizer page 0x0D, Touch Pad usage 0x05)");
    EXPECT_EQ(refusal<Mouse>(mouse), "(accepted)");
    const Bytes noY = {0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, 0x09, 0x22, 0xA1, 0x02, 0x75, 0x08, 0x95, 0x01,
                       0x05, 0x01, 0x09, 0x30, 0x81, 0x02, 0xC0, 0xC0};
    EXPECT_EQ(refusal<Touch>(noY), "its touchpad collection's reports have no Y usage");
    EXPECT_EQ(refusal<Mouse>(noY),
              "the descriptor has no mouse collection with X and Y (Generic Desktop page 0x01, Mouse usage 0x02 or "
              "Pointer 0x01)");
    const Bytes noX = {0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, 0x75, 0x08, 0x95, 0x01, 0x09, 0x54, 0x81, 0x02, 0xC0};
    EXPECT_EQ(refusal<Touch>(noX), "its touchpad collection's reports have no X usage");
}

}  // namespace
