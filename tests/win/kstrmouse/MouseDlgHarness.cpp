#include "MouseDlgHarness.h"

#include <afxole.h>
#include <gtest/gtest.h>

#include <iterator>
#include <map>

#include "KstrMouseDlg.h"
#include "harn5/DiagModule.h"
#include "harn5/Host.h"
#include "ksx/OperatingSystem.h"

using GetSystemMetricsFn = int(WINAPI*)(int);
// The executable's import slot of GetSystemMetrics, which the module's calls go through.
extern "C" GetSystemMetricsFn __imp_GetSystemMetrics;

namespace mousetest {

namespace {

GetSystemMetricsFn s_realGetSystemMetrics = nullptr;
int s_overriddenIndex = -1;
int s_overriddenValue = 0;

int WINAPI FakeGetSystemMetrics(int index)
{
    return index == s_overriddenIndex ? s_overriddenValue : s_realGetSystemMetrics(index);
}

// The dialog that is visible and running modally on this thread now.
HWND ModalDialog()
{
    CWnd* pMain = AfxGetMainWnd();
    return pMain != nullptr ? pMain->m_hWnd : nullptr;
}

std::map<UINT_PTR, Script> s_pending;  // scripts by the id of the timer that carries them
bool s_oleInitialised = false;

void InitialiseOle()
{
    s_oleInitialised = AfxOleInit() != FALSE;
}

void CancelIfOpen(const Dialog& dialog)
{
    if (::IsWindowVisible(dialog.hwnd())) {
        ::PostMessageW(dialog.hwnd(), WM_COMMAND, IDCANCEL, 0);
    }
}

}  // namespace

std::wstring Dialog::Text(int id) const
{
    wchar_t text[4096] = {};
    ::GetDlgItemTextW(m_hWnd, id, text, static_cast<int>(std::size(text)));
    return text;
}

LRESULT Dialog::Send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

void Dialog::Click(int id) const
{
    Send(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(Item(id)));
}

POINT Dialog::Centre(int id) const
{
    RECT rect{};
    ::GetWindowRect(Item(id), &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

NextModalLoop::NextModalLoop(Script script) : m_id(::SetTimer(nullptr, 0, 0, &OnTimer))
{
    s_pending[m_id] = std::move(script);
}

NextModalLoop::~NextModalLoop()
{
    if (s_pending.erase(m_id) != 0) {
        ::KillTimer(nullptr, m_id);
    }
}

void CALLBACK NextModalLoop::OnTimer(HWND, UINT, UINT_PTR id, DWORD)
{
    // The modal loop shows its dialog once it runs out of messages: until then, try again.
    if (!::IsWindowVisible(ModalDialog())) {
        return;
    }
    ::KillTimer(nullptr, id);
    const auto it = s_pending.find(id);
    if (it == s_pending.end()) {
        return;
    }
    const Script script = std::move(it->second);
    s_pending.erase(it);
    Dialog dialog(ModalDialog());
    script(dialog);
}

bool PumpUntil(const std::function<bool()>& done, DWORD timeoutMs)
{
    const ULONGLONG deadline = ::GetTickCount64() + timeoutMs;
    while (!done()) {
        const ULONGLONG now = ::GetTickCount64();
        if (now >= deadline) {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(deadline - now), QS_ALLINPUT);
        MSG msg;
        while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            ::TranslateMessage(&msg);
            ::DispatchMessageW(&msg);
        }
    }
    return true;
}

bool OleInitialised()
{
    return s_oleInitialised;
}

harn5::TestResult RunMouseDialog(const Script& script, Ole ole)
{
    if (ole == Ole::Initialise) {
        InitialiseOle();
    }
    CKstrMouseDlg dialog(nullptr);
    const NextModalLoop run([&script](Dialog& d) {
        script(d);
        CancelIfOpen(d);
    });
    EXPECT_NE(-1, dialog.DoModal());
    return dialog.m_result;
}

harn5::RunRecord RunMouseTestInHost(const std::vector<std::string>& options, const Script& script)
{
    return RunTestInHost("MouseTest", options, script);
}

harn5::RunRecord RunTestInHost(const std::string& test, const std::vector<std::string>& options,
                               const Script& script)
{
    InitialiseOle();
    std::vector<std::string> arguments = {"kstrmouse_dialog_tests", "--test", test, "--no-system-devices",
                                          "--device", "Mouse", "--lang", KSTR_SOURCE_DIR "/resources/lang/en.lang"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<const char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    const NextModalLoop run([&script](Dialog& d) {
        script(d);
        CancelIfOpen(d);
    });
    harn5::DiagModule::setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    harn5::DiagModule::start();
    const auto& runs = harn5::DiagModule::host().results().runs();
    return runs.empty() ? harn5::RunRecord{} : runs.back();
}

std::size_t ModuleEventCount()
{
    return harn5::DiagModule::host().results().moduleEvents().size();
}

std::vector<harn5::EventRecord> ModuleEventsSince(std::size_t mark)
{
    const auto& events = harn5::DiagModule::host().results().moduleEvents();
    return {events.begin() + static_cast<std::ptrdiff_t>(mark), events.end()};
}

std::vector<std::string> ModuleEventLinesSince(std::size_t mark)
{
    std::vector<std::string> lines;
    for (const harn5::EventRecord& e : ModuleEventsSince(mark)) {
        lines.push_back(e.name + " " + e.severity + " " + e.sourceFile + " " + std::to_string(e.line));
    }
    return lines;
}

ParamsTrue::ParamsTrue(std::initializer_list<harn5::Parameter*> parameters) : m_parameters(parameters)
{
    for (harn5::Parameter* parameter : m_parameters) {
        parameter->assign(harn5::Value(ksx::String("true")));
    }
}

ParamsTrue::~ParamsTrue()
{
    for (harn5::Parameter* parameter : m_parameters) {
        parameter->reset();
    }
}

SystemMetricsOverride::SystemMetricsOverride(int index, int value)
    : m_import(__imp_GetSystemMetrics, &FakeGetSystemMetrics)
{
    s_overriddenIndex = index;
    s_overriddenValue = value;
    s_realGetSystemMetrics = m_import.real();
}

SystemMetricsOverride::~SystemMetricsOverride() = default;

Windows10PEScope::Windows10PEScope()
{
    const ksx::OperatingSystem pe(ksx::OperatingSystem::WINDOWS_PE, ksx::OperatingSystem::WINDOWS_10);
    ksx::OperatingSystem::setOverride(&pe);
}

Windows10PEScope::~Windows10PEScope()
{
    ksx::OperatingSystem::setOverride(nullptr);
}

std::wstring ShippedPicturesFolder()
{
    std::wstring folder = L"Z:";
    for (const char c : std::string(KSTR_BINARY_DIR) + "/bin") {
        folder += c == '/' ? L'\\' : static_cast<wchar_t>(c);
    }
    return folder;
}

namespace {

// The dialogs run where the build puts the shipped pictures, as the module runs beside them.
class WherePicturesAre : public testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(::SetCurrentDirectoryW(ShippedPicturesFolder().c_str())) << KSTR_BINARY_DIR; }
};
const testing::Environment* const g_wherePicturesAre = testing::AddGlobalTestEnvironment(new WherePicturesAre);

}  // namespace

}  // namespace mousetest
