#include "afx/CBitmap.h"

CBitmap::CBitmap() : m_hObject(nullptr) {}

CBitmap::~CBitmap()
{
    DeleteObject();
}

CBitmap::operator HBITMAP() const
{
    return static_cast<HBITMAP>(m_hObject);
}

HGDIOBJ CBitmap::GetSafeHandle() const
{
    return m_hObject;
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    DeleteObject();
    m_hObject = ::LoadBitmapW(::GetModuleHandleW(nullptr), lpszResourceName);
    return m_hObject != nullptr;
}

BOOL CBitmap::LoadBitmap(UINT nIDResource)
{
    return LoadBitmap(MAKEINTRESOURCEW(nIDResource));
}

int CBitmap::GetBitmap(BITMAP* pBitMap) const
{
    if (m_hObject == nullptr || pBitMap == nullptr) {
        return 0;
    }
    return ::GetObjectW(m_hObject, sizeof(BITMAP), pBitMap);
}

BOOL CBitmap::DeleteObject()
{
    if (m_hObject == nullptr) {
        return FALSE;
    }
    ::DeleteObject(m_hObject);
    m_hObject = nullptr;
    return TRUE;
}
