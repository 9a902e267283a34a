#pragma once
// An owner-drawn button that shows one of up to four bitmaps: up, down (selected), focused
// and disabled. The bitmaps belong to the button.
#include <windows.h>

#include "afx/CBitmap.h"
#include "afx/CButton.h"

class CBitmapButton : public CButton {
public:
    CBitmapButton();
    ~CBitmapButton() override;

    // Loads the up bitmap (required) and the down, focused and disabled ones (each when
    // named); FALSE when any named bitmap is missing. Bitmaps held before are freed.
    BOOL LoadBitmaps(LPCTSTR lpszBitmapResource, LPCTSTR lpszBitmapResourceSel = nullptr,
                     LPCTSTR lpszBitmapResourceFocus = nullptr,
                     LPCTSTR lpszBitmapResourceDisabled = nullptr);
    // The same by resource number; 0 names none.
    BOOL LoadBitmaps(UINT nIDBitmapResource, UINT nIDBitmapResourceSel = 0,
                     UINT nIDBitmapResourceFocus = 0, UINT nIDBitmapResourceDisabled = 0);
    // Takes over the parent's owner-drawn button nID, loads the bitmaps named by its window
    // text with the suffixes U (required), D, F and X (each when present) and sizes the
    // button to the up bitmap. FALSE when the control is missing, taken, not owner-drawn,
    // or has no up bitmap.
    BOOL AutoLoad(UINT nID, CWnd* pParent);
    // Resizes the button to the up bitmap, keeping its position.
    void SizeToContent();

    // Draws the bitmap of the state: down when selected, else focused, else disabled (each
    // when loaded), else up.
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override;

protected:
    CBitmap m_bitmap;
    CBitmap m_bitmapSel;
    CBitmap m_bitmapFocus;
    CBitmap m_bitmapDisabled;
};
