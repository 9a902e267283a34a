#pragma once
// The source side's rules during a drag: when the drag begins, continues, drops or cancels,
// and which cursor it shows.
#include <windows.h>

#include <ole2.h>

#include "afx/AfxDropEffect.h"

#include "afx/CRect.h"

class CWnd;

class COleDropSource {
public:
    COleDropSource();
    virtual ~COleDropSource();
    COleDropSource(const COleDropSource&) = delete;
    COleDropSource& operator=(const COleDropSource&) = delete;

    // Called before the drag proper: waits with the mouse captured by pWnd until the pointer
    // leaves m_rectStartDrag or the drag delay passes (TRUE), or the left button goes up or
    // Escape is pressed (FALSE). FALSE at once when the left button is not down.
    virtual BOOL OnBeginDrag(CWnd* pWnd);
    // Called by the drag loop at each key or button change: Escape cancels, the left button's
    // release drops, anything else goes on.
    virtual SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState);
    // Called with the effect the target answered; the default asks for the standard cursors.
    virtual SCODE GiveFeedback(DROPEFFECT dropEffect);

    // Screen rectangle the pointer must leave before the drag starts.
    CRect m_rectStartDrag;
    // Set by OnBeginDrag when the drag started.
    BOOL m_bDragStarted;
};
