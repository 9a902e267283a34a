#include "AfxCreationHook.h"

#include <cwchar>
#include <exception>

#include "AfxThreadState.h"
#include "afx/CWnd.h"

AfxCreationHook::AfxCreationHook(CWnd* pWnd)
    : m_hHook(::SetWindowsHookExW(WH_CBT, &CbtProc, nullptr, ::GetCurrentThreadId())),
      m_pPrevInit(AfxThreadState::Get().pWndInit)
{
    AfxThreadState::Get().pWndInit = pWnd;
}

AfxCreationHook::~AfxCreationHook()
{
    const DWORD lastError = ::GetLastError();
    AfxThreadState::Get().pWndInit = m_pPrevInit;
    if (m_hHook != nullptr) {
        ::UnhookWindowsHookEx(m_hHook);
    }
    ::SetLastError(lastError);
}

bool AfxCreationHook::Installed() const
{
    return m_hHook != nullptr;
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
