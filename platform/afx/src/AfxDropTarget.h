#pragma once
// The IDropTarget registered for a COleDropTarget: it turns the system's calls into the
// OnDragXxx handlers, with the data object wrapped and the point in client coordinates.
#include <windows.h>

#include <ole2.h>

#include "afx/AfxDropEffect.h"
#include "afx/COleDataObject.h"
#include "afx/CPoint.h"

class COleDropTarget;

class AfxDropTarget final : public IDropTarget {
public:
    // A new object with one reference, forwarding to pOwner for the window hWnd.
    static AfxDropTarget* Create(COleDropTarget* pOwner, HWND hWnd);

    // Stops forwarding: the system may still hold references after a revoke.
    void Disconnect();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDropTarget
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* pDataObj, DWORD grfKeyState, POINTL pt,
                                        DWORD* pdwEffect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD grfKeyState, POINTL pt, DWORD* pdwEffect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* pDataObj, DWORD grfKeyState, POINTL pt,
                                   DWORD* pdwEffect) override;

    // The handler's answer made acceptable to a source that allows dwAllowed: a copy or move
    // the source refuses becomes the other one when allowed, anything else refused is none.
    static DROPEFFECT FilterEffect(DROPEFFECT dropEffect, DWORD dwAllowed);

private:
    AfxDropTarget(COleDropTarget* pOwner, HWND hWnd);
    ~AfxDropTarget();

    CPoint ClientPoint(POINTL pt) const;
    // Holds the drag's data object (with a reference) until the drag leaves or drops.
    void HoldData(IDataObject* pDataObj);

    LONG m_cRef;
    COleDropTarget* m_pOwner;
    HWND m_hWnd;
    COleDataObject m_dataObject;
};
