// The touchpad quality dialog under a flood of frames: a replay posted to its thread, one message a
// frame, at 1 kHz, at 8 kHz and at full pace (the next frame as soon as the dialog has taken the
// ones before), three fingers sweeping the pad. For each: how often the coverage map and the
// busiest window of the dialog repainted a second, against the display's rate, and whether the
// frames waiting in the queue grew. The dialog runs as the host runs a test, through a test of this
// program's own that gives it the replay for its source.
#include <windows.h>

#include <cstdio>
#include <memory>

#include "FloodPhases.h"
#include "FloodPump.h"
#include "HostRun.h"
#include "harn5/DiagModule.h"
#include "quality/DisplayRate.h"
#include "resource.h"
#include "touchquality/CTouchpadQualityDlg.h"
#include "touchquality/FrameSource.h"

namespace {

rawkit::TouchLayout pad()
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.y = {0, 680};
    layout.widthMm = 101.3;
    layout.heightMm = 56.6;
    return layout;
}

// Three fingers moving over the pad, one interval of the phase's rate between frames.
class FloodFrames : public FrameSource {
public:
    explicit FloodFrames(Sink sink) : m_sink(std::move(sink)), m_pump([this](long long n) { deliver(n); }) {}
    ~FloodFrames() override
    {
        if (s_current == this) {
            s_current = nullptr;
        }
    }

    // The interval the replay's clock gives the frames to come; ratePerSecond 0: full pace.
    void pace(double ratePerSecond) { m_intervalUs = ratePerSecond > 0 ? static_cast<long long>(1e6 / ratePerSecond) : 125; }
    FloodPump& pump() { return m_pump; }
    std::int64_t nowUs() const override { return m_timeUs; }
    unsigned long malformedFrames() const override { return 0; }

    static FloodFrames* s_current;   // the source of the dialog running now

private:
    void deliver(long long n)
    {
        m_timeUs += m_intervalUs;
        rawkit::TouchFrame frame{m_timeUs, {}, 0, std::nullopt};
        for (std::uint32_t f = 0; f < 3; ++f) {
            rawkit::ContactReport contact;
            contact.id = f;
            contact.tip = true;
            contact.x = static_cast<std::int32_t>((n / 4 + f * 400) % 1217);
            contact.y = static_cast<std::int32_t>((n / 5000 * 97 + f * 200) % 681);
            frame.contacts.push_back(contact);
        }
        m_sink(frame);
    }

    Sink m_sink;
    FloodPump m_pump;
    long long m_intervalUs = 125;
    long long m_timeUs = 0;   // the replay's clock: one interval a frame, across the phases
};

FloodFrames* FloodFrames::s_current = nullptr;

harn5::TestResult runFloodedDialog(const harn5::DiagDevice&)
{
    CTouchpadQualityDlg dialog(
        pad(),
        [](FrameSource::Sink sink) {
            auto source = std::make_unique<FloodFrames>(std::move(sink));
            FloodFrames::s_current = source.get();
            return source;
        },
        touchq::TouchpadAnalysis::Settings{});
    dialog.DoModal();
    return harn5::TestResult::PASS();
}

[[maybe_unused]] harn5::Test* const floodTest =
    harn5::DiagModule::createTest(harn5::HarnString("TouchpadQualityFlood"), harn5::DeviceCapability::Mouse(),
                                  &runFloodedDialog)
        ->setInteractive(true)
        ->setCreatesOwnGUI(true)
        ->setEnumeratesOnlyOnce(true);

}  // namespace

int wmain()
{
    FloodPhase phases[] = {{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    // The same flood into a window of the dialog's thread that does nothing with it.
    FloodPhase bare[] = {{"1 kHz", 1000}, {"8 kHz", 8000}, {"full pace", 0}};
    bool ran = false;
    HostRun run({"--test", "TouchpadQualityFlood", "--device", "Mouse"}, [&](HWND dialog) {
        if (FloodFrames::s_current == nullptr) {
            return;
        }
        FloodFrames& flood = *FloodFrames::s_current;
        const PaintCounting counting;   // its hooks cost each message alike in both
        FloodPump nothing([](long long) {});
        for (std::size_t i = 0; i < std::size(phases); ++i) {
            FloodPhases::run(nullptr, nothing, bare[i]);
            flood.pace(phases[i].rate);
            FloodPhases::run(GetDlgItem(dialog, IDC_TQ_MAP + 1), flood.pump(), phases[i]);
        }
        ran = true;
    });
    if (!run.run() || !ran) {
        std::fprintf(stderr, "Touchpad quality flood bench: the dialog never took the replay\n");
        return 1;
    }
    FloodPhases::print("Touchpad quality dialog", "map", phases, bare, static_cast<int>(std::size(phases)),
                       DisplayRate::hz());
    return 0;
}
