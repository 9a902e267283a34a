// The touchpad quality test in the real host, its dialog driven with the messages a user's clicks
// send: the replay of a hybrid pad decoded by the platform's parser passes, findings and the
// user's own Fail are reported, Close aborts, parameters and devices it cannot take are refused.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "../rawkit/ShippedTouchpads.h"
#include "TouchQualityHarness.h"
#include "TouchScenes.h"
#include "rawkit/FrameAssembler.h"
#include "rawkit/HidTouchDecoder.h"
#include "resource.h"
#include "harn5/HarnException.h"
#include "touchq/Resolution.h"

using namespace tqtest;

namespace {

const std::wstring kOnlyHandsOffLeft = L"Still to do:\r\n- press Hands off and let go of the device";

// The Dell XPS 13 9360's pad: 101.3 x 56.6 mm in 1216 x 680 units, 13 x 7 cells.
rawkit::TouchLayout dell()
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.y = {0, 680};
    layout.widthMm = 101.3;
    layout.heightMm = 56.6;
    return layout;
}

bool startsWith(const std::wstring& text, const std::wstring& start)
{
    return text.rfind(start, 0) == 0;
}

// Frames as the live touchpad gives them: each scan encoded into the pad's reports (several for
// a hybrid pad), decoded by the platform's parser and put together again.
std::vector<rawkit::TouchFrame> throughTheParser(const std::vector<rawkit::TouchFrame>& scans, hidtest::ReportMaker& maker,
                                                 const rawkit::HidTouchDecoder& decoder)
{
    rawkit::FrameAssembler assembler(decoder.layout().maxContactId);
    std::vector<rawkit::TouchFrame> frames;
    for (const rawkit::TouchFrame& scan : scans) {
        for (const std::vector<std::uint8_t>& report : maker.scan(scan.contacts, scan.buttons)) {
            const std::optional<rawkit::TouchReport> decoded = decoder.decode(report.data(), report.size());
            if (const std::optional<rawkit::TouchFrame> frame = decoded ? assembler.add(*decoded, scan.timeUs) : std::nullopt) {
                frames.push_back(*frame);
            }
        }
    }
    EXPECT_EQ(assembler.malformedFrames(), 0U);
    return frames;
}

}  // namespace

TEST(TouchpadQualityDialog, AHybridPadThatDoesEverythingPassesAfterAQuietHandsOff)
{
    // The Elan pad sends one contact a report, its size in inches: 104.9 x 74.4 mm, 13 x 9 cells;
    // it declares contact ids 0 to 2, so three fingers are the most it can report.
    std::string why;
    std::vector<std::uint8_t> preparsed = hidtest::shippedTouchpad("elan_04f3_300b.rdesc", why);
    ASSERT_FALSE(preparsed.empty()) << why;
    hidtest::ReportMaker maker(preparsed);
    const auto decoder = rawkit::HidTouchDecoder::create(preparsed, why);
    ASSERT_NE(decoder, nullptr) << why;
    TouchScenes scenes(decoder->layout(), 9);
    scenes.sweep().fingers(3).rest(2).click(0.25).click(0.75);
    const std::string device = sessionDevice(decoder->layout(), throughTheParser(scenes.frames(), maker, *decoder));

    const Outcome outcome = runHost(
        {"--device", device, "--param", "uIdleSeconds=1"},
        {waitFor([](HWND dialog) { return itemText(dialog, IDC_TQ_STATUS) == kOnlyHandsOffLeft; }),
         act([](HWND dialog) {
             EXPECT_EQ(itemText(dialog, IDC_TQ_CELLS), L"Every cell has reported a finger.");
             EXPECT_EQ(itemText(dialog, IDC_TQ_FINGERS), L"Fingers down: 0   most at once: 3   palm frames: 0");
             EXPECT_TRUE(startsWith(itemText(dialog, IDC_TQ_RATE_ONE), L"1 finger: 125 Hz   median 8.0 ms"));
             EXPECT_TRUE(startsWith(itemText(dialog, IDC_TQ_RATE_SEVERAL), L"3+ fingers: 125 Hz"));
             EXPECT_EQ(itemText(dialog, IDC_TQ_CLICKS), L"Clicks: left half: Yes   right half: Yes");
             EXPECT_EQ(itemText(dialog, IDC_TQ_RESOLUTION), L"Resolution: 784 x 801 dpi");
             EXPECT_EQ(itemText(dialog, IDC_TQ_SIZE), L"Pad: 104.9 x 74.4 mm   13 x 9");
             EXPECT_FALSE(itemEnabled(dialog, IDC_TQ_PASS));
             click(dialog, IDC_TQ_HANDS_OFF);
             EXPECT_EQ(itemText(dialog, IDC_TQ_IDLE), L"Take your hand off now");
         }),
         waitFor([](HWND dialog) { return itemEnabled(dialog, IDC_TQ_PASS); }),
         act([](HWND dialog) {
             EXPECT_EQ(itemText(dialog, IDC_TQ_IDLE), L"No contact while hands off");
             EXPECT_EQ(itemText(dialog, IDC_TQ_STATUS), L"Every check has run and found nothing: press Pass.");
             click(dialog, IDC_TQ_PASS);
         })});
    ASSERT_TRUE(outcome.run);
    EXPECT_FALSE(outcome.timedOut);
    EXPECT_EQ(outcome.run->verdict, harn5::TestResult::PASS());
    EXPECT_TRUE(outcome.events().empty());
    EXPECT_EQ(outcome.figure("CellsCovered"), 117.0);
    EXPECT_EQ(outcome.figure("MaxContacts"), 3.0);
    EXPECT_LT(outcome.figure("JitterMicrons"), 100.0);
    EXPECT_EQ(outcome.figure("MalformedFrames"), 0.0);
    std::ifstream picture(reportFile().parent_path() / "report-run1-coverage.png", std::ios::binary);
    char signature[8] = {};
    picture.read(signature, 8);
    EXPECT_EQ(std::string(signature + 1, 3), "PNG") << "the coverage map beside the report";
}

TEST(TouchpadQualityDialog, AFailReportsEachFindingWithWhatWasFound)
{
    // Columns 6 and 7 (units 468 to 655) never report; two fingers at most; a rest trembling 1 mm.
    TouchScenes scenes(dell(), 7, [](std::int32_t x, std::int32_t) { return x >= 468 && x < 656; });
    scenes.sweep().fingers(2).rest(12, 0.8);
    const Outcome outcome = runHost(
        {"--device", sessionDevice(dell(), scenes.frames()), "--param", "RequiredChecks=coverage;contacts;jitter"},
        {waitFor([](HWND dialog) {
             return startsWith(itemText(dialog, IDC_TQ_STATUS), L"Found:\r\na resting finger moved up to ");
         }),
         act([](HWND dialog) {
             EXPECT_FALSE(itemEnabled(dialog, IDC_TQ_PASS));
             EXPECT_EQ(itemText(dialog, IDC_TQ_CELLS), L"Cells still to do: 14 / 91");
             click(dialog, IDC_TQ_FAIL);
         })});
    ASSERT_TRUE(outcome.run);
    EXPECT_EQ(outcome.run->verdict, harn5::TestResult::FAIL());
    ASSERT_EQ(outcome.events(), (std::vector<std::string>{"TOUCHPAD_DEAD_ZONE", "TOUCHPAD_CONTACTS_BELOW_MINIMUM",
                                                          "TOUCHPAD_JITTER"}));
    const auto& events = outcome.run->events;
    EXPECT_EQ(events[0].detail.rfind("14 of 91 cells never touched (cells of 7.8 x 8.1 mm", 0), 0U) << events[0].detail;
    EXPECT_NE(events[0].detail.find(": row 1 column 6, 39.0 x 0.0 mm; row 1 column 7, 46.8 x 0.0 mm;"), std::string::npos)
        << events[0].detail;
    EXPECT_EQ(events[1].detail, "at most 2 finger(s) at once, fewer than 3");
    EXPECT_NE(events[2].detail.find(" \xC2\xB5m from its place, more than 500 \xC2\xB5m"), std::string::npos) << events[2].detail;
    EXPECT_EQ((std::vector<std::string>{events[0].sourceFile, std::to_string(events[0].line)}),
              (std::vector<std::string>{"TouchpadQualityTest", "70"}));
    EXPECT_NEAR(outcome.figure("JitterMicrons"), 1000.0, 45.0);
}

TEST(TouchpadQualityDialog, AFailWithNothingFoundIsTheGeneralFailureAndCloseAborts)
{
    // Only the resolution asked for: judged before any input.
    const std::vector<std::string> options = {"--device", sessionDevice(dell(), {}), "--param", "RequiredChecks=resolution"};
    const Outcome failed = runHost(options, {waitFor([](HWND dialog) { return itemEnabled(dialog, IDC_TQ_PASS); }),
                                             act([](HWND dialog) { click(dialog, IDC_TQ_FAIL); })});
    ASSERT_TRUE(failed.run);
    EXPECT_EQ(failed.run->verdict, harn5::TestResult::FAIL());
    EXPECT_EQ(failed.events(), std::vector<std::string>{"TOUCHPAD_QUALITY_TEST_FAILED"});
    EXPECT_EQ(failed.run->events[0].line, 76);

    const Outcome closed = runHost(options, {act([](HWND dialog) { click(dialog, IDCANCEL); })});
    ASSERT_TRUE(closed.run);
    EXPECT_EQ(closed.run->verdict, harn5::TestResult::USERABORTED());
    EXPECT_TRUE(closed.events().empty());
    EXPECT_EQ(closed.figure("CellsTotal"), 91.0) << "the figures of an aborted run are kept";
}

TEST(TouchpadQualityDialog, ThePointerTestsChecksAreLeftToItAndUnknownOnesRefused)
{
    const Outcome idleOnly = runHost(
        {"--device", sessionDevice(dell(), {}), "--param", "RequiredChecks=wheel;idle"},
        {waitFor([](HWND dialog) { return itemText(dialog, IDC_TQ_STATUS) == kOnlyHandsOffLeft; })});
    EXPECT_EQ(idleOnly.stepsDone, 1U) << "wheel is the pointer quality test's";

    // Refused by the host's rule for bad input: one line, exit 7, no dialog.
    EXPECT_THROW(runHost({"--device", sessionDevice(dell(), {}), "--param", "RequiredChecks=tremor"}, {}),
                 harn5::HarnException);
}

TEST(TouchpadQualityDialog, APadOfUnknownSizeAndAVersion1Session)
{
    rawkit::TouchLayout unsized = dell();
    unsized.widthMm.reset();
    unsized.heightMm.reset();
    const Outcome outcome = runHost(
        {"--device", sessionDevice(unsized, {})},
        {act([](HWND dialog) {
            EXPECT_EQ(itemText(dialog, IDC_TQ_SIZE), L"Pad: unknown   12 x 8");
            EXPECT_EQ(itemText(dialog, IDC_TQ_REST), L"Resting finger: unknown");
            const std::wstring status = itemText(dialog, IDC_TQ_STATUS);
            EXPECT_NE(status.find(L"- a resting finger: the pad does not declare its size"), std::wstring::npos) << status;
            EXPECT_NE(status.find(L"- resolution: the pad does not declare its size"), std::wstring::npos) << status;
        })});
    ASSERT_TRUE(outcome.run);
    EXPECT_TRUE(std::isnan(outcome.figure("PadWidth")) && std::isnan(outcome.figure("ResolutionY")));

    const Outcome old = runHost({"--device", sessionDevice(dell(), {}, 0.0, 1)}, {});
    ASSERT_TRUE(old.run);
    EXPECT_EQ(old.run->verdict, harn5::TestResult::CANNOTRUN());
}

TEST(ShippedTouchpads, ResolutionFromEachDescriptorsUnits)
{
    // X and Y: logical units over the physical extent, in inches (10^-2 cm, or 10^-2 inch for Elan).
    struct Expected {
        const char* file;
        double dpiX;   // logical maximum / (physical maximum x 10^-2 cm / 2.54)
        double dpiY;
    };
    for (const Expected e : {Expected{"dell-xps9360-touchpad.rdesc", 1216 / (10.13 / 2.54), 680 / (5.66 / 2.54)},
                             Expected{"synaptics_06cb_ce08.rdesc", 1272 / (10.60 / 2.54), 672 / (5.60 / 2.54)},
                             Expected{"elan_04f3_300b.rdesc", 3239 / 4.13, 2347 / 2.93},
                             Expected{"sipodev_0603_0002.rdesc", 2628 / (9.40 / 2.54), 1332 / (5.10 / 2.54)},
                             Expected{"microsoft-surfacebook2-touchpad.rdesc", 2020 / (10.10 / 2.54), 1321 / (6.60 / 2.54)}}) {
        std::string why;
        const auto decoder = rawkit::HidTouchDecoder::create(hidtest::shippedTouchpad(e.file, why), why);
        ASSERT_NE(decoder, nullptr) << e.file << ": " << why;
        const touchq::Resolution resolution(decoder->layout());
        ASSERT_TRUE(resolution.known()) << e.file;
        EXPECT_NEAR(*resolution.dpiX(), e.dpiX, 0.05) << e.file;
        EXPECT_NEAR(*resolution.dpiY(), e.dpiY, 0.05) << e.file;
        EXPECT_FALSE(resolution.belowMinimum()) << e.file << ": every shipped pad has 300 dpi or more";
    }
}
