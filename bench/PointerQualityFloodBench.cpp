// The pointer quality dialog under a flood of reports: a replay posted to its thread, one message a
// report as Raw Input delivers them, at 1 kHz, at 8 kHz (the fastest mice) and at full pace (the
// next report as soon as the dialog has taken the ones before). For each: how often the chart and
// the busiest window of the dialog repainted a second, against the display's rate, and whether the
// reports waiting in the queue grew. The dialog runs as the host runs a test, through a test of
// this program's own that gives it the replay for its source.
#include <windows.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "FloodPhases.h"
#include "FloodPump.h"
#include "HostRun.h"
#include "harn5/DiagModule.h"
#include "quality/CPointerQualityDlg.h"
#include "quality/DisplayRate.h"
#include "quality/ReportSource.h"
#include "resource.h"

namespace {

// A replayed mouse moving steadily, one interval of the phase's rate between reports.
class FloodSource : public ReportSource {
public:
    explicit FloodSource(Sink sink)
        : m_sink(std::move(sink)), m_pump([this](long long n) { deliver(n); })
    {
    }
    ~FloodSource() override
    {
        if (s_current == this) {
            s_current = nullptr;
        }
    }

    // The interval the replay's clock gives the reports to come; ratePerSecond 0: full pace.
    void pace(double ratePerSecond)
    {
        m_intervalUs = ratePerSecond > 0 ? static_cast<long long>(1e6 / ratePerSecond) : 125;
    }
    FloodPump& pump() { return m_pump; }

    static FloodSource* s_current;   // the source of the dialog running now

private:
    void deliver(long long n)
    {
        pointerq::TimedReport report;
        m_timeUs += m_intervalUs;
        report.timeUs = m_timeUs;
        report.mouse.dx = 1 + static_cast<int>(n % 3);
        report.mouse.dy = static_cast<int>(n % 2);
        m_sink(report);
    }

    Sink m_sink;
    FloodPump m_pump;
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

}  // namespace

int wmain()
{
    FloodPhase phases[] = {{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    // The same flood into a window of the dialog's thread that does nothing with it: what the
    // queue of a thread with windows on the screen carries at all.
    FloodPhase bare[] = {{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    bool ran = false;
    HostRun run({"--test", "PointerQualityFlood", "--device", "Mouse"}, [&](HWND dialog) {
        if (FloodSource::s_current == nullptr) {
            return;
        }
        FloodSource& flood = *FloodSource::s_current;
        const PaintCounting counting;   // its hooks cost each message alike in both
        FloodPump nothing([](long long) {});
        for (std::size_t i = 0; i < std::size(phases); ++i) {
            FloodPhases::run(nullptr, nothing, bare[i]);
            flood.pace(phases[i].rate);
            FloodPhases::run(GetDlgItem(dialog, IDC_PQ_HISTOGRAM + 1), flood.pump(), phases[i]);
        }
        ran = true;
    });
    if (!run.run() || !ran) {
        std::fprintf(stderr, "Pointer quality flood bench: the dialog never took the replay\n");
        return 1;
    }
    FloodPhases::print("Pointer quality dialog", "chart", phases, bare, static_cast<int>(std::size(phases)),
                       DisplayRate::hz());
    return 0;
}
