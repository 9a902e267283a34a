// The quality checks' throughput: reports analysed per second, against the aim of 1,000,000 (125
// times an 8 kHz mouse), and the working set after a short and after a ten times longer stream,
// which must not grow with the length of the run.
#include <windows.h>
#include <psapi.h>

#include <cstdio>

#include "Stopwatch.h"
#include "pointerq/QualityAnalysis.h"

namespace {

constexpr double kAimPerSecond = 1000000.0;

// A mouse at 8 kHz: moving, clicking now and then, turning the wheel, a hands-off period.
double analyse(long long reports)
{
    pointerq::QualityAnalysis analysis(pointerq::QualityAnalysis::Settings{});
    analysis.startIdle(reports * 125 / 2);
    pointerq::TimedReport report;
    const Stopwatch clock;
    for (long long n = 0; n < reports; ++n) {
        report.timeUs = n * 125 + (n * 7919) % 40;   // a little jitter
        report.mouse.dx = static_cast<std::int32_t>(n % 9) - 4;
        report.mouse.dy = static_cast<std::int32_t>(n % 5) - 2;
        report.mouse.buttonFlags = n % 4000 == 0 ? 0x0001 : n % 4000 == 800 ? 0x0002 : n % 1000 == 0 ? 0x0400 : 0;
        report.mouse.wheel = static_cast<std::int16_t>(report.mouse.buttonFlags == 0x0400 ? 120 : 0);
        analysis.add(report);
    }
    const double seconds = clock.elapsedMicroseconds() / 1e6;
    volatile std::size_t sink = analysis.measurements().size();
    (void)sink;
    return static_cast<double>(reports) / seconds;
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
    std::printf("pointer quality analysis: %.0f reports/s over 1e6, %.0f reports/s over 1e7 = %.1f x the aim of "
                "1,000,000 (%s)\n",
                shortRate, longRate, longRate / kAimPerSecond, longRate >= kAimPerSecond ? "met" : "MISSED");
    std::printf("working set after 1e6 reports %zu KB, after 1e7 %zu KB: %+lld KB (%s)\n", shortKb, longKb,
                static_cast<long long>(longKb) - static_cast<long long>(shortKb),
                longKb <= shortKb + 64 ? "flat" : "GROWS");
    return 0;
}
