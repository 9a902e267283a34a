// The parser and the decoders on the report descriptors of five shipping touchpads
// (tests/data/hid-descriptors: copied from the project's shared test data, which took them from
// the Linux kernel's HID selftests, tools/testing/selftests/hid/tests/test_multitouch.py). Where
// each value sits is stated here, read from the descriptors by hand; reports are built from
// tables of contacts at those places.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RecordingText.h"
#include "ReportBytes.h"
#include "hidrd/DescriptorParser.h"
#include "hidrd/MouseReportDecoder.h"
#include "hidrd/TouchReportDecoder.h"
#include "rawkit/FrameAssembler.h"

namespace {

using hidrd::TouchReportDecoder;
using rawkit::ContactReport;

struct Pad {
    const char* file;
    std::vector<hidrd::Usage> topLevel;
    std::uint8_t reportId;
    std::size_t reportBytes;
    unsigned slots;
    std::size_t fingerBits;       // bits from one finger collection to the next
    std::size_t idOffset, idBits; // within a finger; confidence at bit 0, tip at 1
    std::size_t xOffset, yOffset, xyBits;
    std::size_t scanOffset, countOffset, countBits, buttonOffset;
    rawkit::ValueRange x, y;
    double widthMm, heightMm;
    std::uint32_t maxContactId;
};

constexpr hidrd::Usage kMouse = 0x10002, kTouchPad = 0xD0005, kConfig = 0xD000E;

const std::vector<Pad>& pads()
{
    static const std::vector<Pad> all = {
        {"dell-xps9360-touchpad", {kMouse, kTouchPad, kConfig, 0xFF000001}, 3, 30, 5, 40, 2, 3, 8, 24, 16,
         200, 216, 8, 224, {0, 1216}, {0, 680}, 101.3, 56.6, 5},
        {"synaptics_06cb_ce08", {kMouse, kMouse, 0xFF000002, kTouchPad, kConfig, 0xFF000001}, 3, 30, 5, 40, 2, 3,
         8, 24, 16, 200, 216, 8, 224, {0, 1272}, {0, 672}, 106.0, 56.0, 5},
        {"elan_04f3_300b", {kMouse, kTouchPad, kConfig}, 4, 10, 1, 40, 2, 2, 8, 24, 16, 40, 56, 8, 64, {0, 3239},
         {0, 2347}, 104.902, 74.422, 2},
        {"sipodev_0603_0002", {kMouse, kTouchPad, kConfig, 0x1000C, 0x10080, 0xC0001, 0xFF000001}, 4, 8, 1, 32, 4,
         4, 8, 20, 12, 32, 48, 4, 55, {0, 2628}, {0, 1332}, 94.0, 51.0, 5},
        {"microsoft-surfacebook2-touchpad",
         {0x10006, kMouse, 0xC0001, 0xFF050001, 0xFF050002, kTouchPad, kConfig, 0xFF070001, 0xFF050004, 0xFF050050,
          0xFF00F900},
         4, 30, 5, 40, 2, 3, 8, 24, 16, 200, 216, 8, 224, {0, 2020}, {0, 1321}, 101.0, 66.0, 3},
    };
    return all;
}

hidrd::ReportDescriptor parse(const Pad& pad)
{
    return hidrd::DescriptorParser::parse(RecordingText::shipped(std::string(pad.file) + ".rdesc"));
}

ContactReport contact(std::uint32_t id, bool tip, bool confidence, std::int32_t x, std::int32_t y)
{
    ContactReport c;
    c.id = id;
    c.tip = tip;
    c.confidence = confidence;
    c.x = x;
    c.y = y;
    return c;
}

// The reports a pad sends for one scan: as many contacts a report as it has finger collections,
// the count in the first report and 0 in the others.
std::vector<std::vector<std::uint8_t>> scan(const Pad& pad, const std::vector<ContactReport>& contacts,
                                            std::uint16_t scanTime, bool button)
{
    std::vector<std::vector<std::uint8_t>> reports;
    for (std::size_t first = 0; first < contacts.size(); first += pad.slots) {
        ReportBytes report(pad.reportId, pad.reportBytes);
        for (std::size_t slot = 0; slot < pad.slots && first + slot < contacts.size(); ++slot) {
            const ContactReport& c = contacts[first + slot];
            const std::size_t base = slot * pad.fingerBits;
            report.put(base, 1, c.confidence).put(base + 1, 1, c.tip).put(base + pad.idOffset, pad.idBits, c.id);
            report.put(base + pad.xOffset, pad.xyBits, c.x).put(base + pad.yOffset, pad.xyBits, c.y);
        }
        report.put(pad.scanOffset, 16, scanTime).put(pad.buttonOffset, 1, button);
        report.put(pad.countOffset, pad.countBits, first == 0 ? static_cast<std::int64_t>(contacts.size()) : 0);
        reports.push_back(report.bytes());
    }
    return reports;
}

TEST(RealDescriptors, CollectionsReportsAndTheTouchpadsLayout)
{
    for (const Pad& pad : pads()) {
        SCOPED_TRACE(pad.file);
        const hidrd::ReportDescriptor descriptor = parse(pad);
        std::vector<hidrd::Usage> topLevel;
        for (const std::size_t c : descriptor.topLevel()) {
            topLevel.push_back(descriptor.collections()[c].usage);
        }
        EXPECT_EQ(topLevel, pad.topLevel);
        const TouchReportDecoder decoder(descriptor);
        EXPECT_EQ(decoder.reportId(), pad.reportId);
        EXPECT_EQ(decoder.reportBytes(), pad.reportBytes);
        const rawkit::TouchLayout& layout = decoder.layout();
        EXPECT_EQ(layout.slots, pad.slots);
        EXPECT_EQ(layout.x, pad.x);
        EXPECT_EQ(layout.y, pad.y);
        ASSERT_TRUE(layout.widthMm && layout.heightMm);
        EXPECT_NEAR(*layout.widthMm, pad.widthMm, 0.001);
        EXPECT_NEAR(*layout.heightMm, pad.heightMm, 0.001);
        EXPECT_EQ(layout.maxContactId, pad.maxContactId);
        EXPECT_FALSE(layout.width) << "none of them reports a contact's width";
        // The last finger's X, where this test says it is.
        const std::size_t touchpad = descriptor.topLevel()[static_cast<std::size_t>(
            std::find(pad.topLevel.begin(), pad.topLevel.end(), kTouchPad) - pad.topLevel.begin())];
        std::vector<std::uint32_t> xOffsets;
        for (const hidrd::Field* field : descriptor.inputFields(touchpad)) {
            if (field->reportId == pad.reportId && field->usageAt(0) == 0x10030U) {
                xOffsets.push_back(field->bitOffset);
                EXPECT_EQ(descriptor.path(*field).size(), 2U) << "in a finger of the touchpad";
            }
        }
        ASSERT_EQ(xOffsets.size(), pad.slots);
        EXPECT_EQ(xOffsets.back(), (pad.slots - 1) * pad.fingerBits + pad.xOffset);
    }
}

TEST(RealDescriptors, AScanOfThreeContactsComesOutOfTheFrameAssemblerWhole)
{
    // A finger, a palm beside it and a finger lifting, with the pad's button held.
    const std::vector<ContactReport> contacts = {contact(2, true, true, 700, 300), contact(0, true, false, 90, 610),
                                                 contact(1, false, true, 1000, 40)};
    for (const Pad& pad : pads()) {
        SCOPED_TRACE(pad.file);
        const TouchReportDecoder decoder(parse(pad));
        rawkit::FrameAssembler assembler(decoder.layout().maxContactId);
        std::optional<rawkit::TouchFrame> frame;
        rawkit::TouchReport report;
        const auto reports = scan(pad, contacts, 4321, true);
        EXPECT_EQ(reports.size(), pad.slots == 1 ? 3U : 1U);
        for (const auto& bytes : reports) {
            ASSERT_EQ(decoder.decode(bytes.data(), bytes.size(), report), TouchReportDecoder::Outcome::Decoded);
            EXPECT_EQ(report.scanTime, 4321U);
            EXPECT_FALSE(frame) << "complete only with its last report";
            frame = assembler.add(report, 1000);
        }
        ASSERT_TRUE(frame);
        for (ContactReport& c : frame->contacts) {
            c.width = c.height = c.pressure = std::nullopt;
        }
        EXPECT_EQ(frame->contacts, contacts);
        EXPECT_EQ(frame->buttons, 1);
        EXPECT_EQ(assembler.malformedFrames(), 0U);
    }
}

TEST(RealDescriptors, OtherReportsAndShortOnesAreLeftAlone)
{
    for (const Pad& pad : pads()) {
        SCOPED_TRACE(pad.file);
        const TouchReportDecoder decoder(parse(pad));
        rawkit::TouchReport report;
        std::vector<std::uint8_t> bytes = scan(pad, {contact(1, true, true, 5, 5)}, 1, false).front();
        bytes[0] = static_cast<std::uint8_t>(pad.reportId + 1);
        EXPECT_EQ(decoder.decode(bytes.data(), bytes.size(), report), TouchReportDecoder::Outcome::OtherReport);
        bytes[0] = pad.reportId;
        EXPECT_EQ(decoder.decode(bytes.data(), bytes.size() - 1, report), TouchReportDecoder::Outcome::TooShort);
        EXPECT_EQ(decoder.decode(bytes.data(), 0, report), TouchReportDecoder::Outcome::OtherReport);
    }
}

TEST(RealDescriptors, MiceBesideTheTouchpadsAreDecodedByTheirReportIds)
{
    using Outcome = hidrd::MouseReportDecoder::Outcome;
    hidrd::MouseSample sample;
    // Synaptics: the pad's own mouse (report 2) and a pointing stick passed through (0x18, three buttons).
    const hidrd::MouseReportDecoder synaptics(parse(pads()[1]));
    EXPECT_EQ(synaptics.mice(), 2U);
    const std::vector<std::uint8_t> stick = ReportBytes(0x18, 4).put(0, 3, 0b100).put(8, 8, -3).put(16, 8, 12).bytes();
    ASSERT_EQ(synaptics.decode(stick.data(), stick.size(), sample), Outcome::Decoded);
    EXPECT_EQ(sample.buttons, 0b100);
    EXPECT_EQ(sample.x, -3);
    EXPECT_EQ(sample.y, 12);
    EXPECT_FALSE(sample.absolute);
    const std::vector<std::uint8_t> touch = ReportBytes(3, 30).bytes();
    EXPECT_EQ(synaptics.decode(touch.data(), touch.size(), sample), Outcome::OtherReport);

    // Surface Book 2: five buttons, the wheel and AC Pan each in a collection of their own.
    const hidrd::MouseReportDecoder surface(parse(pads()[4]));
    const std::vector<std::uint8_t> mouse =
        ReportBytes(2, 6).put(0, 5, 0b10001).put(8, 8, 100).put(16, 8, -100).put(24, 8, -1).put(32, 8, 2).bytes();
    ASSERT_EQ(surface.decode(mouse.data(), mouse.size(), sample), Outcome::Decoded);
    EXPECT_EQ(sample.buttons, 0b10001);
    EXPECT_EQ(sample.y, -100);
    EXPECT_EQ(sample.wheel, -1);
    EXPECT_EQ(sample.hwheel, 2);
    EXPECT_EQ(surface.decode(mouse.data(), 5, sample), Outcome::TooShort);

    // SiPodev: movement from -128.
    const hidrd::MouseReportDecoder sipodev(parse(pads()[3]));
    const std::vector<std::uint8_t> fast = ReportBytes(3, 4).put(8, 8, -128).bytes();
    ASSERT_EQ(sipodev.decode(fast.data(), fast.size(), sample), Outcome::Decoded);
    EXPECT_EQ(sample.x, -128);
}

}  // namespace
