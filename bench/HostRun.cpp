#include "HostRun.h"

#include <cstdio>
#include <iostream>
#include <sstream>
#include <utility>

#include "harn5/DiagModule.h"
#include "harn5/HarnException.h"
#include "harn5/Host.h"

namespace {

constexpr UINT kPollMs = 20;
constexpr wchar_t kDialogClass[] = L"#32770";

}  // namespace

HostRun* HostRun::s_running = nullptr;

HostRun::HostRun(std::vector<std::string> options, Inside inside, bool systemDevices)
    : m_arguments{"kstrmouse_bench", "--lang", KSTR_SOURCE_DIR "/resources/lang/en.lang"},
      m_inside(std::move(inside)),
      m_dialogSeen(false)
{
    if (!systemDevices) {
        m_arguments.push_back("--no-system-devices");
    }
    m_arguments.insert(m_arguments.end(), options.begin(), options.end());
}

bool HostRun::run()
{
    std::vector<const char*> argv;
    for (const std::string& argument : m_arguments) {
        argv.push_back(argument.c_str());
    }
    std::ostringstream hostOutput;
    harn5::Host& host = harn5::DiagModule::host();
    host.setOutput(hostOutput, hostOutput);
    s_running = this;
    const UINT_PTR timer = SetTimer(nullptr, 0, kPollMs, &HostRun::onTick);
    try {
        harn5::DiagModule::setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
        harn5::DiagModule::start();
    } catch (const harn5::HarnException& e) {
        hostOutput << "HarnException: " << e.what() << '\n';
    }
    KillTimer(nullptr, timer);
    s_running = nullptr;
    host.setOutput(std::cout, std::cerr);
    if (!m_dialogSeen) {
        std::fprintf(stderr, "The test's dialog never showed; the host said:\n%s", hostOutput.str().c_str());
    }
    return m_dialogSeen;
}

void CALLBACK HostRun::onTick(HWND, UINT, UINT_PTR id, DWORD)
{
    const HWND dialog = visibleDialog();
    if (s_running == nullptr || s_running->m_dialogSeen || dialog == nullptr) {
        return;
    }
    KillTimer(nullptr, id);
    s_running->m_dialogSeen = true;
    s_running->m_inside(dialog);
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

HWND HostRun::visibleDialog()
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM lParam) -> BOOL {
            wchar_t className[16] = {};
            GetClassNameW(window, className, 16);
            if (IsWindowVisible(window) && lstrcmpW(className, kDialogClass) == 0) {
                *reinterpret_cast<HWND*>(lParam) = window;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}
