#include "afx/CProgressCtrl.h"

#include <commctrl.h>

CProgressCtrl::CProgressCtrl() = default;

CProgressCtrl::~CProgressCtrl() = default;

void CProgressCtrl::SetRange(short nLower, short nUpper)
{
    if (::IsWindow(m_hWnd)) {
        ::SendMessageW(m_hWnd, PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
    }
}

void CProgressCtrl::SetRange32(int nLower, int nUpper)
{
    if (::IsWindow(m_hWnd)) {
        ::SendMessageW(m_hWnd, PBM_SETRANGE32, static_cast<WPARAM>(nLower), nUpper);
    }
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const
{
    PBRANGE range{0, 0};
    if (::IsWindow(m_hWnd)) {
        ::SendMessageW(m_hWnd, PBM_GETRANGE, FALSE, reinterpret_cast<LPARAM>(&range));
    }
    nLower = range.iLow;
    nUpper = range.iHigh;
}

int CProgressCtrl::SetPos(int nPos)
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<int>(::SendMessageW(m_hWnd, PBM_SETPOS, static_cast<WPARAM>(nPos), 0));
}

int CProgressCtrl::OffsetPos(int nPos)
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<int>(::SendMessageW(m_hWnd, PBM_DELTAPOS, static_cast<WPARAM>(nPos), 0));
}

int CProgressCtrl::StepIt()
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<int>(::SendMessageW(m_hWnd, PBM_STEPIT, 0, 0));
}

int CProgressCtrl::GetPos() const
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<int>(::SendMessageW(m_hWnd, PBM_GETPOS, 0, 0));
}

int CProgressCtrl::SetStep(int nStep)
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<int>(::SendMessageW(m_hWnd, PBM_SETSTEP, static_cast<WPARAM>(nStep), 0));
}

COLORREF CProgressCtrl::SetBarColor(COLORREF clrBar)
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<COLORREF>(::SendMessageW(m_hWnd, PBM_SETBARCOLOR, 0, clrBar));
}

COLORREF CProgressCtrl::SetBkColor(COLORREF clrNew)
{
    if (!::IsWindow(m_hWnd)) {
        return 0;
    }
    return static_cast<COLORREF>(::SendMessageW(m_hWnd, PBM_SETBKCOLOR, 0, clrNew));
}
