// The descriptor parser on descriptors written here, one concern each: every item kind and the
// state it leaves, Push and Pop, usage ranges and extended usages, signed values, report ids and
// none, nested collections, and the descriptors it refuses.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "ReportBytes.h"
#include "hidrd/DescriptorError.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/ReportValue.h"

namespace {

using hidrd::DescriptorParser;
using hidrd::Field;
using hidrd::ReportDescriptor;
using hidrd::ReportKind;
using hidrd::usage;
using Bytes = std::vector<std::uint8_t>;

ReportDescriptor parse(const Bytes& bytes)
{
    return DescriptorParser::parse(bytes);
}

std::string refusal(const Bytes& bytes)
{
    try {
        DescriptorParser::parse(bytes);
    } catch (const hidrd::DescriptorError& error) {
        return error.what();
    }
    return "(accepted)";
}

std::int32_t valueOf(const Field& field, std::uint32_t index, const ReportBytes& report, bool withId)
{
    return hidrd::ReportValue(field, index).read(report.bytes().data() + (withId ? 1 : 0));
}

TEST(DescriptorParser, EveryItemKindLeavesItsStateOnTheField)
{
    const Bytes bytes = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01,   // Generic Desktop, Mouse, Collection (Application)
        0x15, 0x81, 0x25, 0x7F,               // logical -127..127
        0x35, 0x00, 0x46, 0xE8, 0x03,         // physical 0..1000
        0x65, 0x13, 0x55, 0x0E,               // unit inch, exponent -2
        0x75, 0x08, 0x95, 0x02,               // 8 bits, 2 of them
        0x09, 0x30, 0x09, 0x31, 0x81, 0x06,   // X, Y: Input (Data, Variable, Relative)
        0x75, 0x04, 0x95, 0x01, 0x81, 0x01,   // 4 bits of padding: Input (Constant)
        0x09, 0x38, 0x91, 0x02,               // an Output of one 4-bit value
        0x75, 0x10, 0x09, 0x39, 0xB1, 0x02,   // a Feature of one 16-bit value
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 4U);
    const Field& xy = descriptor.fields()[0];
    EXPECT_EQ(xy.kind, ReportKind::Input);
    EXPECT_EQ(xy.bitOffset, 0U);
    EXPECT_EQ(xy.bitSize, 8U);
    EXPECT_EQ(xy.count, 2U);
    EXPECT_TRUE(xy.variable());
    EXPECT_TRUE(xy.relative());
    EXPECT_FALSE(xy.constant());
    EXPECT_EQ(xy.usageAt(1), usage(0x01, 0x31));
    EXPECT_EQ(xy.logicalMin, -127);
    EXPECT_EQ(xy.logicalMax, 127);
    EXPECT_EQ(xy.physicalMax, 1000);
    EXPECT_EQ(xy.unit, 0x13U);
    EXPECT_EQ(xy.unitExponent, -2);
    EXPECT_TRUE(descriptor.fields()[1].constant());
    EXPECT_EQ(descriptor.fields()[1].bitOffset, 16U);
    // Each kind of report counts its own bits.
    EXPECT_EQ(descriptor.fields()[2].kind, ReportKind::Output);
    EXPECT_EQ(descriptor.fields()[2].bitOffset, 0U);
    EXPECT_EQ(descriptor.fields()[3].kind, ReportKind::Feature);
    EXPECT_EQ(descriptor.fields()[3].bitSize, 16U);
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Input, 0), 3U);
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Output, 0), 1U);
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Feature, 0), 2U);
    EXPECT_FALSE(descriptor.usesReportIds());
}

TEST(DescriptorParser, PopRestoresWhatPushSavedAndLocalsEndWithTheirMainItem)
{
    const Bytes bytes = {
        0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01,
        0x75, 0x08, 0x95, 0x01, 0x15, 0x00, 0x25, 0x0A,
        0xA4,                                 // Push
        0x05, 0x01, 0x75, 0x10, 0x26, 0xFF, 0x0F,
        0x09, 0x30, 0x81, 0x02,               // X: 16 bits, 0..4095, Generic Desktop
        0xB4,                                 // Pop
        0x09, 0x54, 0x81, 0x02,               // Contact Count: 8 bits, 0..10, Digitizer again
        0x81, 0x02,                           // no usage left for this one
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 3U);
    EXPECT_EQ(descriptor.fields()[0].usageAt(0), usage(0x01, 0x30));
    EXPECT_EQ(descriptor.fields()[0].logicalMax, 4095);
    const Field& count = descriptor.fields()[1];
    EXPECT_EQ(count.usageAt(0), usage(0x0D, 0x54));
    EXPECT_EQ(count.bitSize, 8U);
    EXPECT_EQ(count.bitOffset, 16U);
    EXPECT_EQ(count.logicalMax, 10);
    EXPECT_FALSE(descriptor.fields()[2].usageAt(0));

    EXPECT_EQ(refusal({0x05, 0x01, 0xB4}), "byte 2: a Pop with nothing pushed");
}

TEST(DescriptorParser, UsageRangesExtendedUsagesAndThePageInForceAtTheMainItem)
{
    const Bytes bytes = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01,
        0x05, 0x09, 0x19, 0x01, 0x29, 0x03,         // Buttons 1 to 3
        0x0B, 0x38, 0x02, 0x0C, 0x00,               // Consumer AC Pan, as an extended usage
        0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x05, 0x81, 0x02,
        0x09, 0x30,                                 // X written while Buttons is the page...
        0x05, 0x01,                                 // ...and Generic Desktop set before the Input
        0x75, 0x08, 0x95, 0x03, 0x81, 0x02,
        0x05, 0x09, 0x19, 0x01, 0x29, 0x08,         // an array of buttons
        0x15, 0x01, 0x25, 0x08, 0x95, 0x01, 0x81, 0x00,
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 3U);
    const Field& buttons = descriptor.fields()[0];
    EXPECT_EQ(buttons.usageAt(0), usage(0x09, 1));
    EXPECT_EQ(buttons.usageAt(2), usage(0x09, 3));
    EXPECT_EQ(buttons.usageAt(3), usage(0x0C, 0x238));
    EXPECT_EQ(buttons.usageAt(4), usage(0x0C, 0x238)) << "the last usage stands for the elements after it";
    EXPECT_EQ(descriptor.fields()[1].usageAt(0), usage(0x01, 0x30));
    const Field& array = descriptor.fields()[2];
    EXPECT_FALSE(array.variable());
    EXPECT_EQ(array.arrayUsage(1), usage(0x09, 1));
    EXPECT_EQ(array.arrayUsage(8), usage(0x09, 8));
    EXPECT_FALSE(array.arrayUsage(0)) << "below the logical minimum: no button";

    EXPECT_EQ(refusal({0x05, 0x09, 0xA1, 0x01, 0x19, 0x05, 0x29, 0x03, 0x81, 0x02, 0xC0}),
              "byte 8: a usage range from 0x090005 down to 0x090003; a Usage Minimum is at most its Maximum");
}

TEST(DescriptorParser, ValuesAreSignedWhereTheLogicalMinimumIsBelowZero)
{
    const Bytes bytes = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x85, 0x07,
        0x15, 0x81, 0x25, 0x7F, 0x75, 0x08, 0x95, 0x01, 0x09, 0x30, 0x81, 0x06,             // -127..127
        0x15, 0x00, 0x25, 0xFF, 0x09, 0x31, 0x81, 0x02,                                     // 0..255 in one byte
        0x16, 0x00, 0x80, 0x26, 0xFF, 0x7F, 0x75, 0x10, 0x09, 0x38, 0x81, 0x06,             // 16-bit signed
        0x17, 0x00, 0x00, 0x00, 0x80, 0x27, 0xFF, 0xFF, 0xFF, 0x7F, 0x75, 0x20, 0x09, 0x32, 0x81, 0x02,
        0x15, 0xF0, 0x25, 0x0F, 0x75, 0x05, 0x09, 0x33, 0x81, 0x02,                         // 5-bit signed
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 5U);
    EXPECT_EQ(descriptor.fields()[1].logicalMax, 255);
    EXPECT_EQ(descriptor.fields()[2].logicalMin, -32768);
    EXPECT_EQ(descriptor.fields()[3].logicalMin, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(descriptor.fields()[3].logicalMax, std::numeric_limits<std::int32_t>::max());
    ReportBytes report(7, descriptor.reportBytes(ReportKind::Input, 7));
    report.put(0, 8, -5).put(8, 8, 200).put(16, 16, -300).put(32, 32, -70000).put(64, 5, -16);
    EXPECT_EQ(valueOf(descriptor.fields()[0], 0, report, true), -5);
    EXPECT_EQ(valueOf(descriptor.fields()[1], 0, report, true), 200);
    EXPECT_EQ(valueOf(descriptor.fields()[2], 0, report, true), -300);
    EXPECT_EQ(valueOf(descriptor.fields()[3], 0, report, true), -70000);
    EXPECT_EQ(valueOf(descriptor.fields()[4], 0, report, true), -16);
}

TEST(DescriptorParser, EachReportIdCountsItsOwnBitsAndItsIdByte)
{
    const Bytes bytes = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01,
        0x75, 0x08, 0x95, 0x01, 0x85, 0x01, 0x09, 0x30, 0x81, 0x02,
        0x85, 0x02, 0x95, 0x03, 0x09, 0x31, 0x81, 0x02,
        0x85, 0x01, 0x75, 0x03, 0x95, 0x01, 0x09, 0x38, 0x81, 0x02,   // report 1 again, after its X
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 3U);
    EXPECT_TRUE(descriptor.usesReportIds());
    EXPECT_EQ(descriptor.fields()[1].reportId, 2);
    EXPECT_EQ(descriptor.fields()[1].bitOffset, 0U);
    EXPECT_EQ(descriptor.fields()[2].reportId, 1);
    EXPECT_EQ(descriptor.fields()[2].bitOffset, 8U);
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Input, 1), 3U) << "id, X, 3 bits rounded up";
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Input, 2), 4U);
    EXPECT_EQ(descriptor.reportBytes(ReportKind::Input, 3), 0U) << "never declared";

    EXPECT_EQ(refusal({0x85, 0x00}), "byte 0: report id 0; give 1 to 255");
}

TEST(DescriptorParser, NestedCollectionsGiveEachFieldItsPath)
{
    const Bytes bytes = {
        0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01,                   // 0: Touch Pad (Application)
        0x09, 0x22, 0xA1, 0x02,                               // 1: Finger (Logical)
        0x05, 0x01, 0x09, 0x01, 0xA1, 0x00,                   // 2: Pointer (Physical)
        0x75, 0x08, 0x95, 0x01, 0x09, 0x30, 0x81, 0x02,       // X, in 2
        0xC0, 0xC0,
        0x05, 0x0D, 0x09, 0x54, 0x81, 0x02,                   // Contact Count, in 0
        0xC0,
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01,                   // 3: Mouse (Application)
        0x09, 0x31, 0x81, 0x06,
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.collections().size(), 4U);
    EXPECT_EQ(descriptor.collections()[1].usage, usage(0x0D, 0x22));
    EXPECT_EQ(descriptor.collections()[1].type, 2);
    EXPECT_EQ(descriptor.collections()[2].parent, 1U);
    EXPECT_EQ(descriptor.topLevel(), (std::vector<std::size_t>{0, 3}));
    EXPECT_EQ(descriptor.path(descriptor.fields()[0]), (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(descriptor.path(descriptor.fields()[1]), (std::vector<std::size_t>{0}));
    EXPECT_EQ(descriptor.inputFields(0).size(), 2U);
    ASSERT_EQ(descriptor.inputFields(3).size(), 1U);
    EXPECT_EQ(descriptor.inputFields(3)[0]->usageAt(0), usage(0x01, 0x31));
    EXPECT_EQ(descriptor.findTopLevel(usage(0x01, 0x02)), 3U);
    EXPECT_FALSE(descriptor.findTopLevel(usage(0x0D, 0x22))) << "a finger is no top-level collection";
}

TEST(DescriptorParser, DelimitersAndZeroLengthItemsAreRead)
{
    const Bytes bytes = {
        0x05, 0x01, 0x09, 0x02, 0xA1, 0x01,
        0xA9, 0x01, 0x09, 0x30, 0xA9, 0x00,   // a delimited set of one usage
        0x14, 0x25, 0x7F, 0x75, 0x08, 0x95, 0x01, 0x81, 0x02,   // Logical Minimum with no data: 0
        0x80,                                                  // an Input with no data: Data, Array
        0xC0,
    };
    const ReportDescriptor descriptor = parse(bytes);
    ASSERT_EQ(descriptor.fields().size(), 2U);
    EXPECT_EQ(descriptor.fields()[0].usageAt(0), usage(0x01, 0x30));
    EXPECT_EQ(descriptor.fields()[0].logicalMin, 0);
    EXPECT_FALSE(descriptor.fields()[1].variable());
    EXPECT_EQ(descriptor.fields()[1].bitOffset, 8U);
}

TEST(DescriptorParser, RefusesWhatItCannotUseNamingTheByte)
{
    EXPECT_EQ(refusal({0x05, 0x01, 0xFE, 0x02, 0x10, 0xAA, 0xBB}),
              "byte 2: a long item (0xFE); long items are not supported, only short ones");
    EXPECT_EQ(refusal({0x05, 0x01, 0x26, 0xFF}),
              "byte 2: the descriptor is cut inside an item (0x26 needs 2 byte(s) of data, 1 left)");
    EXPECT_EQ(refusal({0x05, 0x01, 0xC0}), "byte 2: an End Collection with no collection open");
    EXPECT_EQ(refusal({0x05, 0x01, 0xA1, 0x01, 0xA1, 0x00, 0xC0}),
              "the descriptor ends with 1 collection(s) open; each Collection needs its End Collection");
    EXPECT_EQ(refusal({0x75, 0x08, 0x95, 0x01, 0x81, 0x02}),
              "byte 4: an Input item outside any collection; fields belong to a collection");
    EXPECT_EQ(refusal({0xA1, 0x01, 0x77, 0xFF, 0xFF, 0xFF, 0xFF, 0x97, 0xFF, 0xFF, 0xFF, 0xFF, 0x81, 0x02}),
              "byte 12: Input report 0 would be longer than 65536 bytes");
    EXPECT_EQ(refusal({0xC4, 0x00}), "byte 0: a reserved global item (0xC4)");
    EXPECT_EQ(refusal({0x07, 0x00, 0x00, 0x01, 0x00}), "byte 0: usage page 0x010000 is above 0xFFFF");
}

}  // namespace
