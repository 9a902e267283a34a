// The pointer quality dialog under a flood of reports: a replay posted to its thread, one message a
// report as Raw Input delivers them, at 1 kHz, at 8 kHz (the fastest mice) and at full pace (the
// next report as soon as the dialog has taken the ones before). For each: how often the chart and
// the busiest window of the dialog repainted a second, against the display's rate, and whether the
// reports waiting in the queue grew. The dialog runs as the host runs a test, through a test of
// this program's own that gives it the replay for its source.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <map>
#include <thread>
#include <vector>

#include "HostRun.h"
#include "Stopwatch.h"
#include "harn5/DiagModule.h"
#include "quality/CPointerQualityDlg.h"
#include "quality/DisplayRate.h"
#include "quality/ReportSource.h"
#include "resource.h"

namespace {

constexpr UINT kReportMessage = WM_APP + 1;
constexpr double kPhaseSeconds = 3.0;
constexpr int kSamplesPerSecond = 10;
constexpr long long kFullPaceWindow = 256;   // reports in flight at full pace

// A replayed mouse moving steadily, one interval of the phase's rate between reports.
class FloodSource : public ReportSource {
public:
    explicit FloodSource(Sink sink) : m_sink(std::move(sink))
    {
        m_window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&FloodSource::windowProc));
    }
    ~FloodSource() override
    {
        stop();
        DestroyWindow(m_window);
        if (s_current == this) {
            s_current = nullptr;
        }
    }

    // ratePerSecond 0: full pace.
    void start(double ratePerSecond)
    {
        m_running = true;
        m_intervalUs = ratePerSecond > 0 ? static_cast<long long>(1e6 / ratePerSecond) : 125;
        m_producer = std::thread([this, ratePerSecond] { produce(ratePerSecond); });
    }
    void stop()
    {
        m_running = false;
        if (m_producer.joinable()) {
            m_producer.join();
        }
    }
    long long posted() const { return m_posted; }
    long long handled() const { return m_handled; }

    static FloodSource* s_current;   // the source of the dialog running now

private:
    void produce(double ratePerSecond)
    {
        const Stopwatch watch;
        const long long first = m_posted;
        while (m_running) {
            const long long due = ratePerSecond > 0
                                      ? first + static_cast<long long>(watch.elapsedMicroseconds() * ratePerSecond / 1e6)
                                      : m_handled + kFullPaceWindow;
            while (m_posted < due && m_running) {
                PostMessageW(m_window, kReportMessage, static_cast<WPARAM>(m_posted), 0);
                ++m_posted;
            }
            ratePerSecond > 0 ? Sleep(1) : std::this_thread::yield();
        }
    }

    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<FloodSource*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != kReportMessage || self == nullptr) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        const auto n = static_cast<long long>(wParam);
        pointerq::TimedReport report;
        self->m_timeUs += self->m_intervalUs;
        report.timeUs = self->m_timeUs;
        report.mouse.dx = 1 + static_cast<int>(n % 3);
        report.mouse.dy = static_cast<int>(n % 2);
        self->m_sink(report);
        self->m_handled = n + 1;
        return 0;
    }

    Sink m_sink;
    HWND m_window;
    std::thread m_producer;
    std::atomic<bool> m_running{false};
    std::atomic<long long> m_posted{0};
    std::atomic<long long> m_handled{0};
    long long m_intervalUs = 125;
    long long m_timeUs = 0;   // the replay's clock: one interval a report, across the phases
};

FloodSource* FloodSource::s_current = nullptr;

harn5::TestResult runFloodedDialog(const harn5::DiagDevice&)
{
    CPointerQualityDlg dialog(
        [](ReportSource::Sink sink) {
            auto source = std::make_unique<FloodSource>(std::move(sink));
            FloodSource::s_current = source.get();
            return source;
        },
        pointerq::QualityAnalysis::Settings{});
    dialog.DoModal();
    return harn5::TestResult::PASS();
}

[[maybe_unused]] harn5::Test* const floodTest =
    harn5::DiagModule::createTest(harn5::HarnString("PointerQualityFlood"), harn5::DeviceCapability::Mouse(),
                                  &runFloodedDialog)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->setEnumeratesOnlyOnce(true);

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

// The two hooks that count paints, for a scope.
class PaintCounting {
public:
    PaintCounting()
        : m_queued(SetWindowsHookExW(WH_GETMESSAGE, &countQueuedPaints, nullptr, GetCurrentThreadId())),
          m_sent(SetWindowsHookExW(WH_CALLWNDPROC, &countSentPaints, nullptr, GetCurrentThreadId()))
    {
    }
    ~PaintCounting()
    {
        UnhookWindowsHookEx(m_sent);
        UnhookWindowsHookEx(m_queued);
    }
    PaintCounting(const PaintCounting&) = delete;
    PaintCounting& operator=(const PaintCounting&) = delete;

private:
    HHOOK m_queued;
    HHOOK m_sent;
};

struct Phase {
    const char* name;
    double rate;   // 0: full pace
    double reportsPerSecond = 0;
    double chartPaintsPerSecond = 0;
    double busiestPaintsPerSecond = 0;
    long long waitingAfterFirstSecond = 0;
    long long waitingAtEnd = 0;
    long long mostWaiting = 0;
};

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

void runPhase(HWND dialog, FloodSource& source, Phase& phase)
{
    const HWND chart = GetDlgItem(dialog, IDC_PQ_HISTOGRAM + 1);
    s_paints.clear();
    const long long handledBefore = source.handled();
    int samples = 0;
    source.start(phase.rate);
    pump(kPhaseSeconds, [&] {
        const long long waiting = source.posted() - source.handled();
        phase.mostWaiting = std::max(phase.mostWaiting, waiting);
        if (++samples == kSamplesPerSecond) {
            phase.waitingAfterFirstSecond = waiting;
        }
        phase.waitingAtEnd = waiting;
    });
    source.stop();
    phase.reportsPerSecond = static_cast<double>(source.handled() - handledBefore) / kPhaseSeconds;
    phase.chartPaintsPerSecond = static_cast<double>(s_paints[chart]) / kPhaseSeconds;
    long long busiest = 0;
    for (const auto& [window, count] : s_paints) {
        busiest = std::max(busiest, count);
    }
    phase.busiestPaintsPerSecond = static_cast<double>(busiest) / kPhaseSeconds;
    // What is still queued goes before the next phase starts.
    pump(30, [] {}, [&source] { return source.handled() == source.posted(); });
}

}  // namespace

int wmain()
{
    std::vector<Phase> phases{{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    // The same flood into a window of the dialog's thread that does nothing with it: what the
    // queue of a thread with windows on the screen carries at all.
    std::vector<Phase> bare{{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    bool ran = false;
    HostRun run({"--test", "PointerQualityFlood", "--device", "Mouse"}, [&](HWND dialog) {
        if (FloodSource::s_current == nullptr) {
            return;
        }
        FloodSource& flood = *FloodSource::s_current;
        const PaintCounting counting;   // its hooks cost each message alike in both
        FloodSource nothing([](const pointerq::TimedReport&) {});
        for (std::size_t i = 0; i < phases.size(); ++i) {
            runPhase(nullptr, nothing, bare[i]);
            runPhase(dialog, flood, phases[i]);
        }
        ran = true;
    });
    if (!run.run() || !ran) {
        std::fprintf(stderr, "Pointer quality flood bench: the dialog never took the replay\n");
        return 1;
    }
    const int hz = DisplayRate::hz();
    // Not growing: what waits at the end is no more than after the first second, give or take a
    // refresh's worth of reports and the reports a full-pace replay keeps in flight.
    const auto growth = [hz](const Phase& phase) {
        const long long slack = static_cast<long long>(phase.reportsPerSecond / hz) + kFullPaceWindow;
        return phase.waitingAtEnd <= phase.waitingAfterFirstSecond + slack ? "not growing" : "GROWING";
    };
    std::printf("Pointer quality dialog under a flood of reports (one posted message a report, %.0f s each; "
                "display %d Hz), against a bare window on the dialog's thread:\n", kPhaseSeconds, hz);
    for (std::size_t i = 0; i < phases.size(); ++i) {
        const Phase& phase = phases[i];
        const bool paintsMet = phase.chartPaintsPerSecond <= hz && phase.busiestPaintsPerSecond <= hz;
        std::printf("  %-9s repaints/s: chart %4.1f, busiest window %4.1f (aim <= %d: %s)\n", phase.name,
                    phase.chartPaintsPerSecond, phase.busiestPaintsPerSecond, hz, paintsMet ? "met" : "MISSED");
        std::printf("  %-9s taken: dialog %6.0f reports/s, bare window %6.0f (x%.2f); waiting after 1 s / at the end: "
                    "dialog %lld / %lld (%s), bare window %lld / %lld (%s)\n",
                    "", phase.reportsPerSecond, bare[i].reportsPerSecond, phase.reportsPerSecond / bare[i].reportsPerSecond,
                    phase.waitingAfterFirstSecond, phase.waitingAtEnd, growth(phase), bare[i].waitingAfterFirstSecond,
                    bare[i].waitingAtEnd, growth(bare[i]));
    }
    return 0;
}
