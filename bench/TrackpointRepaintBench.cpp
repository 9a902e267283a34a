// What share of the TrackPoint picture's 50 ms repaint tick one repaint of it costs. The test
// runs as the host runs it, on a recorded session with the three buttons shown; each repaint
// invalidates the picture with erase and paints it at once, as its timer does.
#include <windows.h>

#include <cstdio>
#include <string>

#include "HostRun.h"
#include "Timings.h"
#include "resource.h"

namespace {

constexpr double kTickMicroseconds = 50e3;   // the picture's own repaint period
constexpr int kRounds = 500;
constexpr int kWarmUpRounds = 20;
const char* const kSession = "trackpoint-buttons.session";

void repaint(HWND picture)
{
    InvalidateRect(picture, nullptr, TRUE);
    UpdateWindow(picture);
}

void runBenchmark(HWND dialog, Timings& timings)
{
    const HWND picture = GetDlgItem(dialog, IDC_SYN_DEVICE);
    if (picture == nullptr) {
        return;
    }
    for (int i = 0; i < kWarmUpRounds; ++i) {
        repaint(picture);
    }
    timings.measure(kRounds, [picture] { repaint(picture); });
}

}  // namespace

int wmain()
{
    Timings timings;
    const std::string device = std::string("trackpoint:") + KSTR_SOURCE_DIR "/resources/padkit-sessions/" + kSession;
    HostRun run({"--test", "TrackPointTest", "--device", device},
                [&timings](HWND dialog) { runBenchmark(dialog, timings); });
    if (!run.run() || timings.count() == 0) {
        std::fprintf(stderr, "TrackPoint repaint bench: the dialog had no TrackPoint picture\n");
        return 1;
    }
    std::printf("TrackPoint picture, one repaint (invalidated with erase, then UpdateWindow; %s, three buttons), "
                "%d rounds:\n", kSession, kRounds);
    std::printf("  %.1f us (p99 %.1f us): %.2f %% of its %.0f ms tick (p99 %.2f %%)\n", timings.mean(), timings.p99(),
                100.0 * timings.mean() / kTickMicroseconds, kTickMicroseconds / 1e3,
                100.0 * timings.p99() / kTickMicroseconds);
    return 0;
}
