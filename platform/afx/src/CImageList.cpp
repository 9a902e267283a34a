#include "afx/CImageList.h"

#include "afx/CWnd.h"

CImageList::CImageList() : m_hImageList(nullptr) {}

CImageList::~CImageList()
{
    DeleteImageList();
}

CImageList::operator HIMAGELIST() const
{
    return m_hImageList;
}

HIMAGELIST CImageList::GetSafeHandle() const
{
    return m_hImageList;
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    if (m_hImageList != nullptr) {
        return FALSE;
    }
    m_hImageList = ::ImageList_LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(nBitmapID),
                                          cx, nGrow, crMask, IMAGE_BITMAP, LR_CREATEDIBSECTION);
    return m_hImageList != nullptr;
}

BOOL CImageList::DeleteImageList()
{
    if (m_hImageList == nullptr) {
        return FALSE;
    }
    ::ImageList_Destroy(m_hImageList);
    m_hImageList = nullptr;
    return TRUE;
}

int CImageList::GetImageCount() const
{
    return m_hImageList != nullptr ? ::ImageList_GetImageCount(m_hImageList) : 0;
}

BOOL CImageList::BeginDrag(int nImage, CPoint ptHotSpot)
{
    return m_hImageList != nullptr &&
           ::ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
}

BOOL CImageList::DragEnter(CWnd* pWndLock, CPoint point)
{
    return ::ImageList_DragEnter(pWndLock != nullptr ? pWndLock->GetSafeHwnd() : nullptr, point.x,
                                 point.y);
}

BOOL CImageList::DragMove(CPoint pt)
{
    return ::ImageList_DragMove(pt.x, pt.y);
}

BOOL CImageList::DragLeave(CWnd* pWndLock)
{
    return ::ImageList_DragLeave(pWndLock != nullptr ? pWndLock->GetSafeHwnd() : nullptr);
}

void CImageList::EndDrag()
{
    ::ImageList_EndDrag();
}
