#pragma once
// A window timer that is killed when the object goes.
#include <windows.h>

class CWnd;

class CAutoTimer {
public:
    CAutoTimer();
    ~CAutoTimer();
    CAutoTimer(const CAutoTimer&) = delete;
    CAutoTimer& operator=(const CAutoTimer&) = delete;

    // Starts WM_TIMER with this id every periodMs on the window, replacing the timer this
    // object held before. False when the window is null or gone or SetTimer fails.
    bool SetAsWindowTimer(CWnd* pWnd, UINT_PTR id, UINT periodMs);
    bool SetAsWindowTimer(HWND hWnd, UINT_PTR id, UINT periodMs);
    // Stops the timer; true when one was running on a live window.
    bool Kill();
    // The id of the running timer, 0 when none.
    UINT_PTR GetId() const;

private:
    HWND m_hWnd;
    UINT_PTR m_id;
};
