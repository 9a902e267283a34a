// The live touchpad path under load: TouchpadTest, run as the host runs it, on the virtual
// touchpad of the tests (bench/run.sh installs it with a shipping pad's touchpad collection),
// which a thread floods with the reports of a finger sliding to and fro, as fast as the driver
// takes them. On the dialog's thread each WM_INPUT's dispatch is timed: in it the report is
// decoded, its frame made and the packet given to the dialog, which repaints before it returns.
// Against a 125-250 Hz pad: how many reports a second that cost allows, and how many a second
// reached the dialog while flooded. Aim: the dialog's thread keeps up with a 250 Hz pad and has
// time for the rest: a report takes a quarter of the pad's 4 ms on average (4 x 250 Hz), and at
// most the whole 4 ms at the 99th percentile.
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "HostRun.h"
#include "PadChannel.h"
#include "ShippedTouchpads.h"
#include "Stopwatch.h"
#include "Timings.h"
#include "synaptics/ISynapticsControl.h"

namespace {

constexpr double kPadRate = 250.0;
constexpr double kAim = 4.0;
constexpr double kP99AimMicroseconds = 1e6 / kPadRate;
constexpr double kWarmUpMicroseconds = 500e3;
constexpr double kWindowMicroseconds = 3e6;

struct Figures {
    Timings input;       // each WM_INPUT's dispatch
    long reports = 0;    // WM_INPUT messages in the window
    long packets = 0;    // the dialog's WM_SYN_PACKET in the window
    double microseconds = 0;
};

// A finger sliding across the pad and back, one report a position.
std::vector<std::vector<std::uint8_t>> slide(const std::string& file, std::string& why)
{
    const std::vector<std::uint8_t> preparsed = hidtest::shippedTouchpad(file, why);
    if (preparsed.empty()) {
        return {};
    }
    hidtest::ReportMaker maker(preparsed);
    std::vector<std::vector<std::uint8_t>> reports;
    for (int step = 0; step < 200; ++step) {
        const int x = 100 + 4 * (step < 100 ? step : 200 - step);
        for (auto& report : maker.scan({{0, true, true, x, 300, {}, {}, {}}}, 0)) {
            reports.push_back(std::move(report));
        }
    }
    return reports;
}

// Runs the dialog's messages as its modal loop does; while `figures` is given, WM_INPUT's
// dispatch is timed and the reports and packets counted.
void pumpFor(HWND dialog, double microseconds, Figures* figures)
{
    const Stopwatch watch;
    for (double elapsed = 0; elapsed < microseconds; elapsed = watch.elapsedMicroseconds()) {
        MSG msg;
        if (!PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>((microseconds - elapsed) / 1000) + 1,
                                      QS_ALLINPUT);
            continue;
        }
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            break;
        }
        if (figures != nullptr && msg.message == WM_SYN_PACKET && msg.hwnd == dialog) {
            ++figures->packets;
        }
        const auto dispatch = [&] {
            if (!IsDialogMessageW(dialog, &msg)) {
                TranslateMessage(&msg);
                DispatchMessageW(&msg);
            }
        };
        if (figures != nullptr && msg.message == WM_INPUT) {
            ++figures->reports;
            figures->input.measure(1, dispatch);
        } else {
            dispatch();
        }
    }
}

}  // namespace

int wmain(int argc, wchar_t** argv)
{
    const std::optional<vhid::PadId> id = argc == 3 ? vhid::PadId::parse(std::string(argv[1], argv[1] + wcslen(argv[1])))
                                                    : std::nullopt;
    if (!id) {
        std::fprintf(stderr, "usage: live_touchpad_bench VID:PID DESCRIPTOR (a file of tests/data/hid-descriptors, "
                             "installed as that pad with kstrvhid)\n");
        return 2;
    }
    const std::string file(argv[2], argv[2] + wcslen(argv[2]));
    std::string why;
    const std::vector<std::vector<std::uint8_t>> reports = slide(file, why);
    std::unique_ptr<PadChannel> channel = reports.empty() ? nullptr : PadChannel::open(why);
    if (!channel) {
        std::fprintf(stderr, "live touchpad bench: %s\n", why.c_str());
        return 1;
    }
    Figures figures;
    std::atomic<bool> flooding{true};
    std::atomic<long> refused{0};
    HostRun run({"--test", "TouchpadTest"}, [&](HWND dialog) {
        std::thread feeder([&] {
            for (std::size_t i = 0; flooding; i = (i + 1) % reports.size()) {
                bool busy = false;
                std::string error;
                while (flooding && !channel->send(*id, reports[i], false, busy, error)) {
                    if (!busy) {
                        ++refused;
                        return;
                    }
                    Sleep(0);
                }
            }
        });
        pumpFor(dialog, kWarmUpMicroseconds, nullptr);
        const Stopwatch watch;
        pumpFor(dialog, kWindowMicroseconds, &figures);
        figures.microseconds = watch.elapsedMicroseconds();
        flooding = false;
        feeder.join();
    }, true);
    if (!run.run() || figures.reports == 0 || refused > 0) {
        std::fprintf(stderr, "live touchpad bench: no report of %s reached the dialog%s\n", id->text().c_str(),
                     refused > 0 ? " (the driver refused them: is the pad installed?)" : "");
        return 1;
    }
    const double capacity = 1e6 / figures.input.mean();
    const double delivered = figures.reports / (figures.microseconds / 1e6);
    std::printf("Live touchpad %s (%s), a finger sliding, flooded for %.1f s after %.1f s warm-up:\n",
                id->text().c_str(), file.c_str(), figures.microseconds / 1e6, kWarmUpMicroseconds / 1e6);
    std::printf("  WM_INPUT to the dialog's packet: mean %.0f us: %.0f reports/s = %.1f x a %.0f Hz pad, %.1f x a "
                "125 Hz pad (aim %.0f x %.0f Hz: %s); p99 %.0f us (aim %.0f us: %s)\n",
                figures.input.mean(), capacity, capacity / kPadRate, kPadRate, capacity / 125.0, kAim, kPadRate,
                capacity >= kAim * kPadRate ? "met" : "MISSED", figures.input.p99(), kP99AimMicroseconds,
                figures.input.p99() <= kP99AimMicroseconds ? "met" : "MISSED");
    std::printf("  reached the dialog: %ld reports, %ld packets: %.0f reports/s = %.1f x a %.0f Hz pad\n",
                figures.reports, figures.packets, delivered, delivered / kPadRate, kPadRate);
    return 0;
}
