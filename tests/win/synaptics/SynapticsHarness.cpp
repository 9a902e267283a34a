#include "SynapticsHarness.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "harn5/DiagModule.h"
#include "harn5/Host.h"
#include "ksx/Exception.h"
#include "ksx/LogFactory.h"
#include "padkit/DeviceRegistry.h"
#include "resource.h"

namespace syntest {

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
std::vector<std::string> g_sessionFiles;   // removed when the test program ends

HWND findDialog()
{
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            if (::IsWindowVisible(hWnd) && ::GetDlgItem(hWnd, IDC_SYN_PASS) != nullptr &&
                ::GetDlgItem(hWnd, IDC_SYN_GROUP_STATUS) != nullptr) {
                *reinterpret_cast<HWND*>(lParam) = hWnd;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// Sees the dialog's state the moment WM_INITDIALOG has been handled.
LRESULT CALLBACK afterMessage(int code, WPARAM wParam, LPARAM lParam)
{
    const auto* message = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && g_driver.outcome != nullptr && message->message == WM_INITDIALOG &&
        ::GetDlgItem(message->hwnd, IDC_SYN_PASS) != nullptr) {
        g_driver.outcome->passEnabledAtInit = ::IsWindowEnabled(::GetDlgItem(message->hwnd, IDC_SYN_PASS)) != FALSE;
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
{
    // A step that pumps messages (a click) must not re-enter the scenario.
    if (g_driver.busy || g_driver.outcome == nullptr) {
        return;
    }
    const HWND dialog = findDialog();
    if (dialog == nullptr) {
        return;
    }
    Outcome& outcome = *g_driver.outcome;
    outcome.dialogSeen = true;
    if (::GetTickCount64() - g_driver.started > kScenarioLimitMs) {
        outcome.timedOut = true;
        ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    g_driver.busy = true;
    while (outcome.stepsDone < g_driver.steps->size() && (*g_driver.steps)[outcome.stepsDone](dialog)) {
        ++outcome.stepsDone;
    }
    g_driver.busy = false;
}

std::string tempFolder()
{
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    char path[MAX_PATH] = {};
    ::WideCharToMultiByte(CP_UTF8, 0, folder, -1, path, MAX_PATH, nullptr, nullptr);
    return path;
}

}  // namespace

bool Outcome::logged(const std::string& line) const
{
    for (const std::string& each : log) {
        if (each == line) {
            return true;
        }
    }
    return false;
}

int Outcome::eventCount(const std::string& name) const
{
    int count = 0;
    for (const harn5::EventRecord& event : events) {
        count += event.name == name ? 1 : 0;
    }
    return count;
}

long addDevice(const std::string& session, SynDeviceType type, padkit::ReplayClock clock)
{
    static int s_files = 0;
    const std::string file = tempFolder() + "synaptics_session_" + std::to_string(::GetCurrentProcessId()) + "_" +
                             std::to_string(++s_files) + ".txt";
    std::ofstream(file, std::ios::binary) << session;
    g_sessionFiles.push_back(file);
    padkit::DeviceRegistry::Entry entry;
    entry.type = type;
    entry.session = file;
    entry.clock = clock;
    return padkit::DeviceRegistry::process().add(entry);
}

std::string deviceOption(const std::string& kind, const std::string& properties)
{
    const std::string capability = kind == "touchpad" ? "SynapticsTouchPad" : "SynapticsTrackpoint";
    return "Mouse+SynapticsMouse+" + capability + (properties.empty() ? "" : "," + properties);
}

Outcome runHost(const std::vector<std::string>& options, const std::vector<Step>& steps,
                std::function<bool(const std::string& line)> sinkThrowsOn)
{
    Outcome outcome;
    std::vector<std::string> arguments = {"synaptics_win_tests", "--no-system-devices", "--lang",
                                          std::string(KSTR_SOURCE_DIR) + "/resources/lang/en.lang"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<const char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    ksx::LogFactory::setPriority(ksx::LoggerPriority::PRIORITY_TRACE);
    ksx::LogFactory::setSink([&outcome, &sinkThrowsOn](const std::string& line) {
        // "YYYY-MM-DD HH:MM:SS.mmm " cut off.
        const std::string body = line.size() > 24 ? line.substr(24) : line;
        if (sinkThrowsOn && sinkThrowsOn(body)) {
            throw ksx::Exception("the log sink broke");
        }
        outcome.log.push_back(body);
    });

    g_driver = Driver{&steps, &outcome, ::GetTickCount64(), false};
    const UINT_PTR timer = ::SetTimer(nullptr, 0, kTickMs, &tick);
    const HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROCRET, &afterMessage, nullptr, ::GetCurrentThreadId());
    harn5::DiagModule::setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    outcome.status = harn5::DiagModule::start();
    ::UnhookWindowsHookEx(hook);
    ::KillTimer(nullptr, timer);
    g_driver = Driver{};

    ksx::LogFactory::resetSink();
    ksx::LogFactory::setPriority(ksx::LoggerPriority::PRIORITY_WARNING);
    const harn5::Report& report = harn5::DiagModule::host().results();
    if (!report.runs().empty()) {
        const harn5::RunRecord& run = report.runs().back();
        outcome.verdict = run.verdict.value_or(harn5::TestResult());
        outcome.events = run.events;
    }
    return outcome;
}

Step waitForText(int id, const std::wstring& text)
{
    return [id, text](HWND dialog) { return itemText(dialog, id) == text; };
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
    wchar_t text[1024] = {};
    ::GetDlgItemTextW(dialog, id, text, 1024);
    return text;
}

bool itemVisible(HWND dialog, int id)
{
    return ::IsWindowVisible(::GetDlgItem(dialog, id)) != FALSE;
}

bool itemEnabled(HWND dialog, int id)
{
    return ::IsWindowEnabled(::GetDlgItem(dialog, id)) != FALSE;
}

void click(HWND dialog, int id)
{
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}

HWND devicePicture(HWND dialog)
{
    return ::GetDlgItem(dialog, IDC_SYN_DEVICE);
}

COLORREF pixel(HWND window, int x, int y)
{
    const HDC dc = ::GetDC(window);
    const COLORREF colour = ::GetPixel(dc, x, y);
    ::ReleaseDC(window, dc);
    return colour;
}

bool isBlueish(COLORREF colour)
{
    return colour != CLR_INVALID && GetBValue(colour) > GetRValue(colour) + 60;
}

// The pictures are read relative to the working directory: run where the build puts them.
// The session files go with the program.
class TestFolders : public testing::Environment {
public:
    void SetUp() override
    {
        std::wstring folder = L"Z:";
        for (const char c : std::string(KSTR_BINARY_DIR) + "/bin") {
            folder += c == '/' ? L'\\' : static_cast<wchar_t>(c);
        }
        ASSERT_TRUE(::SetCurrentDirectoryW(folder.c_str())) << KSTR_BINARY_DIR;
    }
    void TearDown() override
    {
        for (const std::string& file : g_sessionFiles) {
            std::error_code ignored;
            std::filesystem::remove(file, ignored);
        }
    }
};
const testing::Environment* const g_folders = testing::AddGlobalTestEnvironment(new TestFolders);

}  // namespace syntest
