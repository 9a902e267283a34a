#pragma once
// A window's side of drag and drop: an IDropTarget registered on the window that forwards
// the drag to the virtual OnDragXxx handlers with points in the window's client coordinates.
#include <windows.h>

#include <ole2.h>

#include "afx/AfxDropEffect.h"

#include "afx/CCmdTarget.h"
#include "afx/CPoint.h"

class AfxDropTarget;
class COleDataObject;
class CWnd;

class COleDropTarget : public CCmdTarget {
public:
    COleDropTarget();
    // Revokes a registration still in place.
    ~COleDropTarget() override;

    // Makes the window a drop target (RegisterDragDrop). The registration ends with Revoke,
    // with this object, or when the window is destroyed (pWnd must be the window's own
    // wrapper for that, as Create, DoModal and SubclassWindow make it). FALSE when the window is missing,
    // this object is registered already, or OLE refuses (OLE not initialised, say).
    BOOL Register(CWnd* pWnd);
    // Ends the registration; nothing when there is none.
    virtual void Revoke();

    // Called when a drag enters the window; answers the effect a drop would have now.
    // The default answers DROPEFFECT_NONE.
    virtual DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                                   CPoint point);
    // Called as the drag moves over the window or the key state changes; the answer is also
    // consulted at the drop point, where DROPEFFECT_NONE ends the drag in OnDragLeave.
    // The default answers DROPEFFECT_NONE.
    virtual DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                                  CPoint point);
    // Called for a drop with the effect OnDragOver answered at the drop point (when
    // OnDropEx declines); TRUE accepts it. The default answers FALSE.
    virtual BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect,
                        CPoint point);
    // Called first for a drop, with that effect and the effects the source allows; answers
    // the effect of the drop, or (DROPEFFECT)-1 to have OnDrop decide. The default answers -1.
    virtual DROPEFFECT OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault,
                                DROPEFFECT dropList, CPoint point);
    // Called when the drag leaves the window, is cancelled, or drops where OnDragOver
    // answers DROPEFFECT_NONE. The default does nothing.
    virtual void OnDragLeave(CWnd* pWnd);

protected:
    // The registered window, null when not registered.
    HWND m_hWnd;

private:
    CWnd* m_pWnd;  // the registered window's wrapper
    AfxDropTarget* m_pTarget;
};
