#include "afx/CBrush.h"

CBrush::CBrush() : m_hObject(nullptr) {}

CBrush::~CBrush()
{
    DeleteObject();
}

CBrush::operator HBRUSH() const
{
    return static_cast<HBRUSH>(m_hObject);
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor)
{
    DeleteObject();
    m_hObject = ::CreateSolidBrush(crColor);
    return m_hObject != nullptr;
}

BOOL CBrush::DeleteObject()
{
    if (m_hObject == nullptr) {
        return FALSE;
    }
    ::DeleteObject(m_hObject);
    m_hObject = nullptr;
    return TRUE;
}
