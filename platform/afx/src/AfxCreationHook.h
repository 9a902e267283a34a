#pragma once
// Binds the next window created on this thread to a CWnd as soon as it exists (HCBT_CREATEWND),
// before it receives WM_NCCREATE, so that every message of its life reaches the message map.
// The hook goes as soon as it has bound its window: a hook left installed for a whole modal
// run makes every window operation of the thread dearer.
#include <windows.h>

class CWnd;

class AfxCreationHook {
public:
    explicit AfxCreationHook(CWnd* pWnd);
    ~AfxCreationHook();
    AfxCreationHook(const AfxCreationHook&) = delete;
    AfxCreationHook& operator=(const AfxCreationHook&) = delete;

    bool Installed() const;

private:
    static LRESULT CALLBACK CbtProc(int nCode, WPARAM wParam, LPARAM lParam);
    void Unhook();

    HHOOK m_hHook;
    bool m_installed;
    CWnd* m_pPrevInit;
    AfxCreationHook* m_pPrevHook;
};
