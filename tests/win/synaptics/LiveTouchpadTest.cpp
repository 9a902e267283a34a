// A precision touchpad's HID reports, decoded by the platform's parser and turned into packets
// as the live source turns them, carry the touchpad test to its verdict.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../rawkit/TouchpadDescriptors.h"
#include "SynapticsHarness.h"
#include "padkit/SessionWriter.h"
#include "padkit/TouchFrameStream.h"
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
