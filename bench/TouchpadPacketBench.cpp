// How many replayed packets a second the touchpad dialog takes, against the 125 a second a
// touchpad sends. The test runs as the host runs it, on a recorded session replayed at
// speed=max and looped: each packet comes as soon as the message loop takes it, and the
// control repaints the pad for every one and tells the dialog.
#include <windows.h>

#include <cstdio>
#include <string>

#include "HostRun.h"
#include "Stopwatch.h"
#include "synaptics/ISynapticsControl.h"

namespace {

constexpr double kDevicePacketsPerSecond = 125.0;
constexpr double kAim = 20.0;
constexpr double kWarmUpMicroseconds = 500e3;
constexpr double kWindowMicroseconds = 3e6;
const char* const kSession = "touchpad-complete.session";

struct Figures {
    long packets = 0;
    double microseconds = 0;
};

// Runs the dialog's messages as its modal loop does for the given time; answers how many packets
// the dialog was told of (one WM_SYN_PACKET each).
long pumpFor(HWND dialog, double microseconds)
{
    long packets = 0;
    const Stopwatch watch;
    for (double elapsed = 0; elapsed < microseconds; elapsed = watch.elapsedMicroseconds()) {
        MSG msg;
        if (!PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            const auto waitMs = static_cast<DWORD>((microseconds - elapsed) / 1000) + 1;
            MsgWaitForMultipleObjects(0, nullptr, FALSE, waitMs, QS_ALLINPUT);
            continue;
        }
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            break;
        }
        if (msg.message == WM_SYN_PACKET && msg.hwnd == dialog) {
            ++packets;
        }
        if (!IsDialogMessageW(dialog, &msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }
    return packets;
}

void runBenchmark(HWND dialog, Figures& figures)
{
    pumpFor(dialog, kWarmUpMicroseconds);
    const Stopwatch watch;
    figures.packets = pumpFor(dialog, kWindowMicroseconds);
    figures.microseconds = watch.elapsedMicroseconds();
}

}  // namespace

int wmain()
{
    Figures figures;
    const std::string device =
        std::string("touchpad:") + KSTR_SOURCE_DIR "/resources/padkit-sessions/" + kSession + ",speed=max,loop=true";
    HostRun run({"--test", "TouchpadTest", "--device", device},
                [&figures](HWND dialog) { runBenchmark(dialog, figures); });
    if (!run.run() || figures.packets == 0) {
        std::fprintf(stderr, "Touchpad packet bench: no packet reached the dialog\n");
        return 1;
    }
    const double seconds = figures.microseconds / 1e6;
    const double perSecond = static_cast<double>(figures.packets) / seconds;
    const double ratio = perSecond / kDevicePacketsPerSecond;
    std::printf("Touchpad dialog, replayed packets at speed=max (%s, looped), %.1f s after %.1f s warm-up:\n", kSession,
                seconds, kWarmUpMicroseconds / 1e6);
    std::printf("  %ld packets: %.0f packets/s, %.1f us per packet; against the device's %.0f Hz: ratio %.1f  "
                "aim >= %.0f  %s\n",
                figures.packets, perSecond, figures.microseconds / static_cast<double>(figures.packets),
                kDevicePacketsPerSecond, ratio, kAim, ratio >= kAim ? "met" : "MISSED");
    return 0;
}
