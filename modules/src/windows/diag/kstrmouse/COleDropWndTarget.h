#pragma once
// The classic dialog's drop target: it accepts the dialog's own drag source dropped on the
// empty target picture, and keeps the source and target pictures in step with the drag.
#include <afxole.h>

class COleDropWndTarget : public COleDropTarget {
public:
    COleDropWndTarget();
    ~COleDropWndTarget() override;

    DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                           CPoint point) override;
    DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                          CPoint point) override;
    BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect,
                CPoint point) override;
    void OnDragLeave(CWnd* pWnd) override;

    bool m_bDropped;  // a drop on the target was accepted; never cleared
    bool m_bEntered;  // a drag has entered the window; never cleared
};
