// The touchpad quality checks' throughput: five-contact frames analysed per second, against the
// aim of 1,000,000 (4,000 times a pad's 250 Hz), and the working set after a short and after a
// ten times longer stream, which must not grow with the length of the run.
#include <windows.h>
#include <psapi.h>

#include <cstdio>

#include "Stopwatch.h"
#include "touchq/TouchpadAnalysis.h"

namespace {

constexpr double kAimPerSecond = 1000000.0;

// A pad at 125 Hz with five fingers moving over it, all lifting and landing again now and then,
// clicking, a hands-off period on the way.
double analyse(long long frames)
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.y = {0, 680};
    layout.widthMm = 101.3;
    layout.heightMm = 56.6;
    touchq::TouchpadAnalysis analysis(layout, touchq::TouchpadAnalysis::Settings{});
    analysis.startIdle(frames * 8000 / 2);
    rawkit::TouchFrame frame;
    frame.contacts.resize(5);
    const Stopwatch clock;
    for (long long n = 0; n < frames; ++n) {
        frame.timeUs = n * 8000 + (n * 7919) % 300;   // a little jitter
        const bool lifted = n % 500 == 0;
        for (std::uint32_t f = 0; f < 5; ++f) {
            rawkit::ContactReport& contact = frame.contacts[f];
            contact.id = f;
            contact.tip = !lifted;
            contact.x = static_cast<std::int32_t>((n * 3 + f * 240) % 1217);
            contact.y = static_cast<std::int32_t>((n / 400 * 37 + f * 130) % 681);
        }
        frame.buttons = n % 1000 == 250 ? 1 : 0;
        analysis.add(frame);
    }
    const double seconds = clock.elapsedMicroseconds() / 1e6;
    volatile std::size_t sink = analysis.measurements(0).size() + analysis.findings(frames * 8000).size();
    (void)sink;
    return static_cast<double>(frames) / seconds;
}

std::size_t workingSetKb()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.WorkingSetSize / 1024;
}

}  // namespace

int wmain()
{
    analyse(100000);   // warm up
    const double shortRate = analyse(1000000);
    const std::size_t shortKb = workingSetKb();
    const double longRate = analyse(10000000);
    const std::size_t longKb = workingSetKb();
    std::printf("touchpad quality analysis: %.0f five-contact frames/s over 1e6, %.0f frames/s over 1e7 = %.1f x the "
                "aim of 1,000,000 (%s)\n",
                shortRate, longRate, longRate / kAimPerSecond, longRate >= kAimPerSecond ? "met" : "MISSED");
    std::printf("working set after 1e6 frames %zu KB, after 1e7 %zu KB: %+lld KB (%s)\n", shortKb, longKb,
                static_cast<long long>(longKb) - static_cast<long long>(shortKb),
                longKb <= shortKb + 64 ? "flat" : "GROWS");
    return 0;
}
