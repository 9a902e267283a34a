#include "ksxui/CAutoTimer.h"

#include <afxwin.h>

CAutoTimer::CAutoTimer() : m_hWnd(nullptr), m_id(0) {}

CAutoTimer::~CAutoTimer()
{
    Kill();
}

bool CAutoTimer::SetAsWindowTimer(CWnd* pWnd, UINT_PTR id, UINT periodMs)
{
    return SetAsWindowTimer(pWnd != nullptr ? pWnd->m_hWnd : nullptr, id, periodMs);
}

bool CAutoTimer::SetAsWindowTimer(HWND hWnd, UINT_PTR id, UINT periodMs)
{
    Kill();
    if (hWnd == nullptr || !::IsWindow(hWnd) || ::SetTimer(hWnd, id, periodMs, nullptr) == 0) {
        return false;
    }
    m_hWnd = hWnd;
    m_id = id;
    return true;
}

bool CAutoTimer::Kill()
{
    if (m_hWnd == nullptr) {
        return false;
    }
    const bool killed = ::IsWindow(m_hWnd) && ::KillTimer(m_hWnd, m_id);
    m_hWnd = nullptr;
    m_id = 0;
    return killed;
}

UINT_PTR CAutoTimer::GetId() const
{
    return m_id;
}
