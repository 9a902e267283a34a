#pragma once
// An owned image list and the system's drag image operations on it.
#include <windows.h>

#include <commctrl.h>

#include "afx/CPoint.h"

class CWnd;

class CImageList {
public:
    CImageList();
    // Destroys the image list.
    ~CImageList();
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    // Null when no list is held.
    HIMAGELIST m_hImageList;

    operator HIMAGELIST() const;
    HIMAGELIST GetSafeHandle() const;

    // Makes a masked list from bitmap resource nBitmapID, cut into images cx pixels wide,
    // with crMask as the transparent colour. FALSE when a list is held already or the
    // bitmap is missing.
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    // Destroys the list; FALSE when none was held.
    BOOL DeleteImageList();
    int GetImageCount() const;

    // Starts a drag image from image nImage with the hot spot inside the image.
    BOOL BeginDrag(int nImage, CPoint ptHotSpot);
    // Shows the drag image over pWndLock (null: the desktop) at point, relative to the
    // window's rectangle, and locks the window's updates.
    static BOOL DragEnter(CWnd* pWndLock, CPoint point);
    // Moves the drag image to pt, relative to the window given to DragEnter.
    static BOOL DragMove(CPoint pt);
    // Hides the drag image and unlocks pWndLock.
    static BOOL DragLeave(CWnd* pWndLock);
    // Ends the drag image started by BeginDrag.
    static void EndDrag();
};
