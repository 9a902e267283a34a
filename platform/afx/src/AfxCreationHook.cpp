#include "AfxCreationHook.h"

#include <cwchar>
#include <exception>

#include "AfxThreadState.h"
#include "afx/CWnd.h"

AfxCreationHook::AfxCreationHook(CWnd* pWnd)
    : m_hHook(::SetWindowsHookExW(WH_CBT, &CbtProc, nullptr, ::GetCurrentThreadId())),
      m_installed(m_hHook != nullptr),
      m_pPrevInit(AfxThreadState::Get().pWndInit),
      m_pPrevHook(AfxThreadState::Get().pCreationHook)
{
    AfxThreadState& state = AfxThreadState::Get();
    state.pWndInit = pWnd;
    state.pCreationHook = this;
}

AfxCreationHook::~AfxCreationHook()
{
    const DWORD lastError = ::GetLastError();
    AfxThreadState& state = AfxThreadState::Get();
    state.pWndInit = m_pPrevInit;
    state.pCreationHook = m_pPrevHook;
    Unhook();
    ::SetLastError(lastError);
}

bool AfxCreationHook::Installed() const
{
    return m_installed;
}

void AfxCreationHook::Unhook()
{
    if (m_hHook != nullptr) {
        ::UnhookWindowsHookEx(m_hHook);
        m_hHook = nullptr;
    }
}

LRESULT CALLBACK AfxCreationHook::CbtProc(int nCode, WPARAM wParam, LPARAM lParam)
{
    AfxThreadState& state = AfxThreadState::Get();
    if (nCode == HCBT_CREATEWND && state.pWndInit != nullptr) {
        HWND hWnd = reinterpret_cast<HWND>(wParam);
        // The system may create its input-method window first; it is not ours.
        wchar_t className[16] = {};
        ::GetClassNameW(hWnd, className, 16);
        if (_wcsicmp(className, L"IME") != 0) {
            CWnd* pWnd = state.pWndInit;
            state.pWndInit = nullptr;
            // Its one window is found: the hook has done its work.
            if (state.pCreationHook != nullptr) {
                state.pCreationHook->Unhook();
            }
            try {
                if (pWnd->Attach(hWnd)) {
                    pWnd->PreSubclassWindow();
                    pWnd->HookWindowProc();
                }
            } catch (...) {
                if (pWnd->m_hWnd == hWnd) {
                    pWnd->Detach();
                }
                state.StoreException(std::current_exception());
                return 1;  // refuse the creation
            }
        }
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}
