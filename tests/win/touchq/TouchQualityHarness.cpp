#include "TouchQualityHarness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "harn5/DiagModule.h"
#include "harn5/Host.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/Session.h"
#include "padkit/SessionWriter.h"
#include "resource.h"

namespace tqtest {

namespace {

// A bound for scenarios that wait on the replay: it never decides a verdict, it only turns a
// hang into a failure.
constexpr ULONGLONG kScenarioLimitMs = 30000;
constexpr UINT kTickMs = 15;

struct Driver {
    const std::vector<Step>* steps = nullptr;
    Outcome* outcome = nullptr;
    ULONGLONG started = 0;
    bool busy = false;
};
Driver g_driver;

std::filesystem::path folder()
{
    wchar_t temp[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, temp);
    return std::filesystem::path(temp) / ("touchq_tests_" + std::to_string(::GetCurrentProcessId()));
}

HWND findDialog()
{
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            if (::IsWindowVisible(hWnd) && ::GetDlgItem(hWnd, IDC_TQ_PASS) != nullptr) {
                *reinterpret_cast<HWND*>(lParam) = hWnd;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
{
    // A step that pumps messages must not re-enter the scenario.
    const HWND dialog = findDialog();
    if (g_driver.busy || g_driver.outcome == nullptr || dialog == nullptr) {
        return;
    }
    Outcome& outcome = *g_driver.outcome;
    if (::GetTickCount64() - g_driver.started > kScenarioLimitMs || outcome.stepsDone == g_driver.steps->size()) {
        outcome.timedOut = outcome.stepsDone < g_driver.steps->size();
        ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    g_driver.busy = true;
    while (outcome.stepsDone < g_driver.steps->size() && (*g_driver.steps)[outcome.stepsDone](dialog)) {
        ++outcome.stepsDone;
    }
    g_driver.busy = false;
}

// The session files and reports go with the program.
class TestFolder : public testing::Environment {
public:
    void SetUp() override { std::filesystem::create_directories(folder()); }
    void TearDown() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder(), ignored);
    }
};
const testing::Environment* const g_folder = testing::AddGlobalTestEnvironment(new TestFolder);

}  // namespace

std::vector<std::string> Outcome::events() const
{
    std::vector<std::string> names;
    for (const harn5::EventRecord& event : run ? run->events : std::vector<harn5::EventRecord>{}) {
        names.push_back(event.name);
    }
    return names;
}

double Outcome::figure(const std::string& name) const
{
    for (const harn5::RunRecord::Measurement& measurement : run ? run->measurements : std::vector<harn5::RunRecord::Measurement>{}) {
        if (measurement.name == name) {
            return measurement.value;
        }
    }
    return std::nan("");
}

std::string sessionDevice(const rawkit::TouchLayout& layout, const std::vector<rawkit::TouchFrame>& frames,
                          double speed, int version)
{
    static int s_files = 0;
    const std::filesystem::path file = folder() / ("pad" + std::to_string(++s_files) + ".session");
    padkit::Session header;
    header.type = SynDeviceTouchPad;
    header.version = version;
    header.xLo = layout.x.low;
    header.xHi = layout.x.high;
    header.yLo = layout.y.low;
    header.yHi = layout.y.high;
    header.widthMm = layout.widthMm;
    header.heightMm = layout.heightMm;
    std::string error;
    {
        const auto writer = padkit::SessionWriter::open(file, header, "", error);
        EXPECT_NE(writer, nullptr) << error;
        for (const rawkit::TouchFrame& frame : version == 2 ? frames : std::vector<rawkit::TouchFrame>{}) {
            writer->write(frame);
        }
    }
    padkit::DeviceRegistry::Entry entry;
    entry.type = SynDeviceTouchPad;
    entry.session = file;
    entry.clock = speed > 0.0 ? *padkit::ReplayClock::atSpeed(speed) : padkit::ReplayClock::unpaced();
    const long handle = padkit::DeviceRegistry::process().add(entry);
    return "Mouse+SynapticsMouse+SynapticsTouchPad,SP_Handle=" + std::to_string(handle);
}

std::filesystem::path reportFile()
{
    return folder() / "report.json";
}

Outcome runHost(const std::vector<std::string>& options, const std::vector<Step>& steps)
{
    Outcome outcome;
    std::error_code ignored;
    for (const auto& file : std::filesystem::directory_iterator(folder(), ignored)) {
        if (file.path().extension() != ".session") {
            std::filesystem::remove(file.path(), ignored);
        }
    }
    std::vector<std::string> arguments = {"touchq_dialog_tests", "--no-system-devices", "--lang",
                                          std::string(KSTR_SOURCE_DIR) + "/resources/lang/en.lang", "--report",
                                          reportFile().string(), "--test", "TouchpadQualityTest"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<const char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    g_driver = Driver{&steps, &outcome, ::GetTickCount64(), false};
    const UINT_PTR timer = ::SetTimer(nullptr, 0, kTickMs, &tick);
    harn5::DiagModule::setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    outcome.status = harn5::DiagModule::start();
    ::KillTimer(nullptr, timer);
    g_driver = Driver{};
    const harn5::Report& report = harn5::DiagModule::host().results();
    if (!report.runs().empty()) {
        outcome.run = report.runs().back();
    }
    return outcome;
}

Step waitFor(std::function<bool(HWND dialog)> condition)
{
    return condition;
}

Step act(std::function<void(HWND dialog)> action)
{
    return [action](HWND dialog) {
        action(dialog);
        return true;
    };
}

std::wstring itemText(HWND dialog, int id)
{
    wchar_t text[2048] = {};
    ::GetDlgItemTextW(dialog, id, text, 2048);
    return text;
}

bool itemEnabled(HWND dialog, int id)
{
    return ::IsWindowEnabled(::GetDlgItem(dialog, id)) != FALSE;
}

void click(HWND dialog, int id)
{
    ::SendMessageW(::GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

}  // namespace tqtest
