// A precision touchpad's HID reports, decoded by the platform's parser and turned into packets
// as the live source turns them, carry the touchpad test to its verdict.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "../rawkit/ShippedTouchpads.h"
#include "../rawkit/TouchpadDescriptors.h"
#include "SynapticsHarness.h"
#include "padkit/FrameLine.h"
#include "padkit/SessionWriter.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/FrameAssembler.h"
#include "rawkit/HidTouchDecoder.h"
#include "resource.h"

using hidtest::Contact;
using namespace syntest;

TEST(LiveTouchpad, DecodedReportsOfAClickpadCarryTheDialogToPass)
{
    const hidtest::Layout layout;
    std::string error;
    auto decoder = rawkit::HidTouchDecoder::create(hidtest::preparsed(hidtest::descriptor(layout), error), error);
    ASSERT_NE(decoder, nullptr) << error;

    // A finger lands and moves, clicks in the middle of the pad, lifts; two fingers click; a
    // report of another id passes by unread.
    const std::vector<std::vector<std::uint8_t>> reports = {
        hidtest::report(layout, {{true, 200, 100, 40}}, 1, 0),
        hidtest::report(layout, {{true, 300, 150, 40}}, 1, 0),
        {static_cast<std::uint8_t>(layout.reportId + 1), 0x7F},
        hidtest::report(layout, {{true, 500, 250, 45}}, 1, 1),
        hidtest::report(layout, {{true, 500, 250, 45}}, 1, 0),
        hidtest::report(layout, {}, 0, 0),
        hidtest::report(layout, {{true, 400, 200, 30}, {true, 600, 200, 30}}, 2, 1),
        hidtest::report(layout, {}, 0, 0),
    };
    padkit::TouchFrameStream stream(decoder->layout());
    padkit::Session header;
    header.type = SynDeviceTouchPad;
    header.xLo = decoder->layout().x.low;
    header.xHi = decoder->layout().x.high;
    header.yLo = decoder->layout().y.low;
    header.yHi = decoder->layout().y.high;
    std::string session = padkit::SessionWriter::headerText(header, "");
    std::int64_t time = 0;
    std::size_t packets = 0;
    for (const std::vector<std::uint8_t>& report : reports) {
        const auto decoded = decoder->decode(report.data(), report.size());
        if (!decoded) {
            continue;
        }
        if (const auto packet = stream.add(*decoded, (time += 20) * 1000)) {
            session += padkit::SessionWriter::packetLine(*packet);
            ++packets;
        }
    }
    EXPECT_EQ(packets, reports.size() - 1);

    const long h = addDevice(session, SynDeviceTouchPad);
    bool enabledAtFirstLook = true;
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h)), "--param",
         "bDisablePassUntilFinished=true"},
        {[&](HWND dialog) {
             enabledAtFirstLook = itemEnabled(dialog, IDC_SYN_PASS);
             return true;
         },
         [](HWND dialog) {
             if (!itemEnabled(dialog, IDC_SYN_PASS)) {
                 return false;
             }
             click(dialog, IDC_SYN_PASS);
             return true;
         }});
    EXPECT_FALSE(enabledAtFirstLook);
    EXPECT_EQ(outcome.stepsDone, 2u);
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
}

// A hybrid pad (one contact a report) with two fingers down, the second moving: its frames, as a
// live run records them, carry the dialog to PASS with the first finger shown throughout.
TEST(LiveTouchpad, AHybridPadsTwoFingerFramesShowTheFirstFingerThroughout)
{
    std::string error;
    std::vector<std::uint8_t> data = hidtest::shippedTouchpad("elan_04f3_300b.rdesc", error);
    ASSERT_FALSE(data.empty()) << error;
    hidtest::ReportMaker maker(data);
    auto decoder = rawkit::HidTouchDecoder::create(data, error);
    ASSERT_NE(decoder, nullptr) << error;
    rawkit::FrameAssembler assembler(decoder->layout().maxContactId);

    padkit::Session header;
    header.type = SynDeviceTouchPad;
    header.version = 2;
    header.xHi = decoder->layout().x.high;
    header.yHi = decoder->layout().y.high;
    std::string session = padkit::SessionWriter::headerText(header, "");
    const auto feed = [&](const std::vector<rawkit::ContactReport>& contacts, std::uint8_t buttons) {
        static std::int64_t timeUs = 0;
        for (const std::vector<std::uint8_t>& report : maker.scan(contacts, buttons)) {
            const auto decoded = decoder->decode(report.data(), report.size());
            ASSERT_TRUE(decoded.has_value());
            if (const auto frame = assembler.add(*decoded, timeUs += 5000)) {
                session += padkit::FrameLine::format(*frame) + "\n";
            }
        }
    };
    const auto at = [](std::uint32_t id, std::int32_t x, bool tip = true) {
        return rawkit::ContactReport{id, tip, true, x, 400, {}, {}, {}};
    };
    feed({at(0, 1000)}, 0);
    for (std::int32_t x = 1500; x <= 2500; x += 100) {
        feed({at(0, 1000), at(1, x)}, 0);
    }
    feed({at(0, 1000), at(1, 2500)}, 1);    // a two-finger click: right
    feed({at(0, 1000), at(1, 2500)}, 0);
    feed({at(0, 1000), at(1, 2500, false)}, 0);
    feed({at(0, 1000)}, 1);                  // a one-finger click: left
    feed({at(0, 1000, false)}, 0);
    EXPECT_EQ(assembler.malformedFrames(), 0U);

    const long h = addDevice(session, SynDeviceTouchPad);
    const Outcome outcome = runHost(
        {"--test", "TouchpadTest", "--device", deviceOption("touchpad", "SP_Handle=" + std::to_string(h)), "--param",
         "bDisablePassUntilFinished=true"},
        {[](HWND dialog) {
            if (!itemEnabled(dialog, IDC_SYN_PASS)) {
                return false;
            }
            click(dialog, IDC_SYN_PASS);
            return true;
        }});
    EXPECT_EQ(outcome.verdict, harn5::TestResult::PASS());
    int fingerPackets = 0;
    for (const std::string& line : outcome.log) {
        // "packet N: TIME FINGER X Y ...": while a finger is down it is the first one, at 1000.
        const std::size_t colon = line.find(": ", line.find("packet "));
        if (line.find("packet ") == std::string::npos || colon == std::string::npos) {
            continue;
        }
        std::istringstream fields(line.substr(colon + 2));
        long time = 0;
        int finger = 0;
        int x = 0;
        fields >> time >> finger >> x;
        if (finger == 1) {
            ++fingerPackets;
            EXPECT_EQ(x, 1000) << line;
        }
    }
    EXPECT_EQ(fingerPackets, 16) << "one packet a frame with a finger down";
}
