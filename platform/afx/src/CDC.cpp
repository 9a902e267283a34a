#include "afx/CDC.h"

CDC::CDC() : m_hDC(nullptr) {}

CDC::~CDC() = default;

CDC::operator HDC() const
{
    return m_hDC;
}

HDC CDC::GetSafeHdc() const
{
    return m_hDC;
}

BOOL CDC::Attach(HDC hDC)
{
    if (m_hDC != nullptr || hDC == nullptr) {
        return FALSE;
    }
    m_hDC = hDC;
    return TRUE;
}

HDC CDC::Detach()
{
    HDC hDC = m_hDC;
    m_hDC = nullptr;
    return hDC;
}

BOOL CDC::DrawIcon(int x, int y, HICON hIcon)
{
    return ::DrawIcon(m_hDC, x, y, hIcon);
}

int CDC::SetBkMode(int nBkMode)
{
    return ::SetBkMode(m_hDC, nBkMode);
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return ::SetBkColor(m_hDC, crColor);
}

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return ::SetTextColor(m_hDC, crColor);
}
