#include "harn5/RunStopper.h"

#include <windows.h>

#include "harn5/Host.h"

namespace harn5 {

namespace {

constexpr UINT kTickMs = 250;

// One run at a time: the timer's callback finds its host here.
const Host* s_host = nullptr;
bool s_closing = false;

// The dialogs of this thread that the user could click now: the test's, above its disabled owner.
BOOL CALLBACK cancelDialog(HWND window, LPARAM)
{
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (IsWindowVisible(window) && IsWindowEnabled(window) && lstrcmpW(name, L"#32770") == 0) {
        PostMessageW(window, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    }
    return TRUE;
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_host != nullptr && !s_closing && s_host->stopUnanswered()) {
        s_closing = true;
        EnumThreadWindows(GetCurrentThreadId(), &cancelDialog, 0);
    }
}

}  // namespace

RunStopper::RunStopper(const Host& host)
{
    s_host = &host;
    s_closing = false;
    m_timer = SetTimer(nullptr, 0, kTickMs, &tick);
}

RunStopper::~RunStopper()
{
    if (m_timer != 0) {
        KillTimer(nullptr, m_timer);
    }
    s_host = nullptr;
}

}  // namespace harn5
