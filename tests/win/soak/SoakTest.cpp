// One process runs each of the module's four tests many times in a row, every dialog driven to
// its end as a technician would, and watches its GDI and USER objects and its working set: a
// handle or memory leak per run shows as growth between a settled run and the last one.
// Not part of the test command (a few minutes); bench/run.sh runs it and prints the figures.
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <functional>
#include <string>

#include "ClickTestDriver.h"
#include "MouseDlgHarness.h"
#include "ProcessResources.h"
#include "SynapticsHarness.h"
#include "SynapticsSessions.h"
#include "resource.h"

using SleepFn = void(WINAPI*)(DWORD);
extern "C" SleepFn __imp_Sleep;

namespace {

using harn5::TestResult;
using mousetest::Dialog;

constexpr int kRuns = 200;
constexpr int kSettledRun = 10;            // first-use caches (fonts, images, classes) are made by then
constexpr unsigned kObjectSlack = 2;
constexpr std::size_t kWorkingSetSlackKb = 2048;

// Runs `once` kRuns times; prints the figures now and then and checks the last against the
// settled run. `once` answers the run's verdict.
void soak(const char* test, const std::function<TestResult()>& once)
{
    std::printf("%s, %d runs in one process:\n", test, kRuns);
    ProcessResources settled;
    for (int run = 1; run <= kRuns; ++run) {
        ASSERT_EQ(once(), TestResult::PASS()) << "run " << run;
        if (run != 1 && run != kSettledRun && run % 50 != 0) {
            continue;
        }
        const ProcessResources now = ProcessResources::of(GetCurrentProcess());
        std::printf("  after run %3d: working set %6zu KB (peak %6zu KB)  GDI objects %4u  USER objects %3u\n", run,
                    now.workingSetKb, now.peakWorkingSetKb, now.gdiObjects, now.userObjects);
        std::fflush(stdout);
        if (run == kSettledRun) {
            settled = now;
        } else if (run == kRuns) {
            EXPECT_LE(now.gdiObjects, settled.gdiObjects + kObjectSlack);
            EXPECT_LE(now.userObjects, settled.userObjects + kObjectSlack);
            EXPECT_LE(now.workingSetKb, settled.workingSetKb + kWorkingSetSlackKb);
        }
    }
}

void WINAPI NoPause(DWORD) {}

TestResult verdictOf(const harn5::RunRecord& run)
{
    return run.verdict.value_or(TestResult());
}

TEST(Soak, MouseTest)
{
    soak("MouseTest", [] {
        return verdictOf(mousetest::RunMouseTestInHost({}, [](Dialog& d) {
            for (const UINT down : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN}) {
                d.Send(down);
                d.Send(down + 1);
            }
            d.Send(WM_MOUSEWHEEL, static_cast<WPARAM>(WHEEL_DELTA) << 16);
            ::SendMessageW(d.Item(IDC_NON_SMILEY), WM_LBUTTONDBLCLK, MK_LBUTTON, 0);
            d.Click(IDC_PASS);
        }));
    });
}

TEST(Soak, MouseInteractiveTest)
{
    // The pauses between steps would make this an hour.
    const mousetest::ImportOverride<SleepFn> noPauses(__imp_Sleep, &NoPause);
    int run = 0;
    soak("MouseInteractiveTest", [&run] {
        const bool gaming = ++run % 2 == 0;
        return verdictOf(clicktest::RunClickTest(clicktest::Layout(gaming), [gaming](Dialog& d) {
            for (const int index : clicktest::StepIndices(gaming)) {
                clicktest::StepAction(index)(d);
            }
        }));
    });
}

// A touch test on a replayed device that completes its checks, ended with Pass once enabled.
void soakTouch(const char* test, const char* kind, const std::string& session, SynDeviceType type)
{
    const long handle = syntest::addDevice(session, type);
    const std::vector<std::string> options = {"--test", test, "--device",
                                              syntest::deviceOption(kind, "SP_Handle=" + std::to_string(handle)),
                                              "--param", "bDisablePassUntilFinished=true"};
    const std::vector<syntest::Step> steps = {
        [](HWND dialog) { return syntest::itemEnabled(dialog, IDC_SYN_PASS); },
        syntest::act([](HWND dialog) { syntest::click(dialog, IDC_SYN_PASS); }),
    };
    soak(test, [&] { return syntest::runHost(options, steps).verdict; });
}

TEST(Soak, TouchpadTest)
{
    soakTouch("TouchpadTest", "touchpad", syntest::kTouchpadComplete, SynDeviceTouchPad);
}

TEST(Soak, TrackPointTest)
{
    soakTouch("TrackPointTest", "trackpoint", syntest::kTrackpointComplete, SynDeviceTrackpoint);
}

}  // namespace
