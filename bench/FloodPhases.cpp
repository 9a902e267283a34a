#include "FloodPhases.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>

#include "Stopwatch.h"

namespace {

constexpr int kSamplesPerSecond = 10;

// WM_PAINT per window of this thread: taken from the queue, or sent by UpdateWindow.
std::map<HWND, long long> s_paints;

LRESULT CALLBACK countQueuedPaints(int code, WPARAM wParam, LPARAM lParam)
{
    const MSG* message = reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && message->message == WM_PAINT) {
        ++s_paints[message->hwnd];
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK countSentPaints(int code, WPARAM wParam, LPARAM lParam)
{
    const CWPSTRUCT* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == WM_PAINT) {
        ++s_paints[message->hwnd];
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// The dialog's own loop, as its modal loop runs it: a message when there is one, else a wait;
// `sample` between messages, kSamplesPerSecond times a second, until `seconds` or `done`.
void pump(double seconds, const std::function<void()>& sample, const std::function<bool()>& done = [] { return false; })
{
    const Stopwatch watch;
    double nextSampleUs = 0;
    while (watch.elapsedMicroseconds() < seconds * 1e6 && !done()) {
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        } else {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
        }
        if (watch.elapsedMicroseconds() >= nextSampleUs) {
            sample();
            nextSampleUs += 1e6 / kSamplesPerSecond;
        }
    }
}

}  // namespace

PaintCounting::PaintCounting()
    : m_queued(SetWindowsHookExW(WH_GETMESSAGE, &countQueuedPaints, nullptr, GetCurrentThreadId())),
      m_sent(SetWindowsHookExW(WH_CALLWNDPROC, &countSentPaints, nullptr, GetCurrentThreadId()))
{
}

PaintCounting::~PaintCounting()
{
    UnhookWindowsHookEx(m_sent);
    UnhookWindowsHookEx(m_queued);
}

void FloodPhases::run(HWND watched, FloodPump& flood, FloodPhase& phase)
{
    s_paints.clear();
    const long long handledBefore = flood.handled();
    int samples = 0;
    flood.start(phase.rate);
    pump(kPhaseSeconds, [&] {
        const long long waiting = flood.posted() - flood.handled();
        phase.mostWaiting = std::max(phase.mostWaiting, waiting);
        if (++samples == kSamplesPerSecond) {
            phase.waitingAfterFirstSecond = waiting;
        }
        phase.waitingAtEnd = waiting;
    });
    flood.stop();
    phase.reportsPerSecond = static_cast<double>(flood.handled() - handledBefore) / kPhaseSeconds;
    phase.watchedPaintsPerSecond = watched != nullptr ? static_cast<double>(s_paints[watched]) / kPhaseSeconds : 0.0;
    long long busiest = 0;
    for (const auto& [window, count] : s_paints) {
        busiest = std::max(busiest, count);
    }
    phase.busiestPaintsPerSecond = static_cast<double>(busiest) / kPhaseSeconds;
    // What is still queued goes before the next phase starts.
    pump(30, [] {}, [&flood] { return flood.handled() == flood.posted(); });
}

void FloodPhases::print(const char* what, const char* watched, const FloodPhase* phases, const FloodPhase* bare,
                        int count, int displayHz)
{
    // Not growing: what waits at the end is no more than after the first second, give or take a
    // refresh's worth of reports and the reports a full-pace flood keeps in flight.
    const auto growth = [displayHz](const FloodPhase& phase) {
        const long long slack = static_cast<long long>(phase.reportsPerSecond / displayHz) + FloodPump::kFullPaceWindow;
        return phase.waitingAtEnd <= phase.waitingAfterFirstSecond + slack ? "not growing" : "GROWING";
    };
    std::printf("%s under a flood of reports (one posted message a report, %.0f s each; display %d Hz), against a "
                "bare window on the dialog's thread:\n",
                what, kPhaseSeconds, displayHz);
    for (int i = 0; i < count; ++i) {
        const FloodPhase& phase = phases[i];
        const bool paintsMet = phase.watchedPaintsPerSecond <= displayHz && phase.busiestPaintsPerSecond <= displayHz;
        std::printf("  %-9s repaints/s: %s %4.1f, busiest window %4.1f (aim <= %d: %s)\n", phase.name, watched,
                    phase.watchedPaintsPerSecond, phase.busiestPaintsPerSecond, displayHz, paintsMet ? "met" : "MISSED");
        std::printf("  %-9s taken: dialog %6.0f reports/s, bare window %6.0f (x%.2f); waiting after 1 s / at the end: "
                    "dialog %lld / %lld (%s), bare window %lld / %lld (%s)\n",
                    "", phase.reportsPerSecond, bare[i].reportsPerSecond, phase.reportsPerSecond / bare[i].reportsPerSecond,
                    phase.waitingAfterFirstSecond, phase.waitingAtEnd, growth(phase), bare[i].waitingAfterFirstSecond,
                    bare[i].waitingAtEnd, growth(bare[i]));
    }
}
