#include "AfxDropTarget.h"

#include <exception>

#include <wrl/client.h>

#include "AfxThreadState.h"
#include "afx/COleDropTarget.h"
#include "afx/CWnd.h"

namespace {

// OnDropEx's answer when it leaves the drop to OnDrop.
constexpr DROPEFFECT kDropExDeclined = static_cast<DROPEFFECT>(-1);

// Keeps an exception thrown by a handler for the thread's next framework call: it must not
// unwind through the system's drag loop.
void KeepException()
{
    AfxThreadState::Get().StoreException(std::current_exception());
}

}  // namespace

AfxDropTarget* AfxDropTarget::Create(COleDropTarget* pOwner, HWND hWnd)
{
    return new AfxDropTarget(pOwner, hWnd);
}

AfxDropTarget::AfxDropTarget(COleDropTarget* pOwner, HWND hWnd)
    : m_cRef(1), m_pOwner(pOwner), m_hWnd(hWnd)
{
}

AfxDropTarget::~AfxDropTarget() = default;

void AfxDropTarget::Disconnect()
{
    m_pOwner = nullptr;
    m_dataObject.Release();
}

HRESULT AfxDropTarget::QueryInterface(REFIID riid, void** ppv)
{
    if (ppv == nullptr) {
        return E_POINTER;
    }
    if (riid == IID_IUnknown || riid == IID_IDropTarget) {
        *ppv = static_cast<IDropTarget*>(this);
        AddRef();
        return S_OK;
    }
    *ppv = nullptr;
    return E_NOINTERFACE;
}

ULONG AfxDropTarget::AddRef()
{
    return static_cast<ULONG>(::InterlockedIncrement(&m_cRef));
}

ULONG AfxDropTarget::Release()
{
    const LONG count = ::InterlockedDecrement(&m_cRef);
    if (count == 0) {
        delete this;
    }
    return static_cast<ULONG>(count);
}

DROPEFFECT AfxDropTarget::FilterEffect(DROPEFFECT dropEffect, DWORD dwAllowed)
{
    const DROPEFFECT scroll = dropEffect & DROPEFFECT_SCROLL;
    const DROPEFFECT effect = dropEffect & ~DROPEFFECT_SCROLL;
    if (effect == DROPEFFECT_NONE || (effect & dwAllowed) == effect) {
        return effect | scroll;
    }
    if (effect == DROPEFFECT_COPY && (dwAllowed & DROPEFFECT_MOVE) != 0) {
        return DROPEFFECT_MOVE | scroll;
    }
    if (effect == DROPEFFECT_MOVE && (dwAllowed & DROPEFFECT_COPY) != 0) {
        return DROPEFFECT_COPY | scroll;
    }
    return DROPEFFECT_NONE | scroll;
}

CPoint AfxDropTarget::ClientPoint(POINTL pt) const
{
    POINT point{pt.x, pt.y};
    ::ScreenToClient(m_hWnd, &point);
    return CPoint(point);
}

void AfxDropTarget::HoldData(IDataObject* pDataObj)
{
    if (m_dataObject.GetIDataObject(FALSE) == pDataObj) {
        return;
    }
    if (pDataObj != nullptr) {
        pDataObj->AddRef();
    }
    m_dataObject.Attach(pDataObj, TRUE);
}

HRESULT AfxDropTarget::DragEnter(IDataObject* pDataObj, DWORD grfKeyState, POINTL pt,
                                 DWORD* pdwEffect)
{
    if (pdwEffect == nullptr) {
        return E_INVALIDARG;
    }
    const DWORD allowed = *pdwEffect;
    *pdwEffect = DROPEFFECT_NONE;
    if (m_pOwner == nullptr) {
        return S_OK;
    }
    Microsoft::WRL::ComPtr<IDropTarget> keepAlive(this);
    try {
        HoldData(pDataObj);
        *pdwEffect = FilterEffect(m_pOwner->OnDragEnter(CWnd::FromHandle(m_hWnd), &m_dataObject,
                                                        grfKeyState, ClientPoint(pt)),
                                  allowed);
    } catch (...) {
        KeepException();
        return E_UNEXPECTED;
    }
    return S_OK;
}

HRESULT AfxDropTarget::DragOver(DWORD grfKeyState, POINTL pt, DWORD* pdwEffect)
{
    if (pdwEffect == nullptr) {
        return E_INVALIDARG;
    }
    const DWORD allowed = *pdwEffect;
    *pdwEffect = DROPEFFECT_NONE;
    if (m_pOwner == nullptr) {
        return S_OK;
    }
    Microsoft::WRL::ComPtr<IDropTarget> keepAlive(this);
    try {
        *pdwEffect = FilterEffect(m_pOwner->OnDragOver(CWnd::FromHandle(m_hWnd), &m_dataObject,
                                                       grfKeyState, ClientPoint(pt)),
                                  allowed);
    } catch (...) {
        KeepException();
        return E_UNEXPECTED;
    }
    return S_OK;
}

HRESULT AfxDropTarget::DragLeave()
{
    Microsoft::WRL::ComPtr<IDropTarget> keepAlive(this);
    HRESULT hr = S_OK;
    if (m_pOwner != nullptr) {
        try {
            m_pOwner->OnDragLeave(CWnd::FromHandle(m_hWnd));
        } catch (...) {
            KeepException();
            hr = E_UNEXPECTED;
        }
    }
    m_dataObject.Release();
    return hr;
}

HRESULT AfxDropTarget::Drop(IDataObject* pDataObj, DWORD grfKeyState, POINTL pt,
                            DWORD* pdwEffect)
{
    if (pdwEffect == nullptr) {
        return E_INVALIDARG;
    }
    const DWORD allowed = *pdwEffect;
    *pdwEffect = DROPEFFECT_NONE;
    if (m_pOwner == nullptr) {
        return S_OK;
    }
    // A handler may revoke the registration (destroying the window, say): the object stays
    // alive to the end of the call and asks the owner only while it is connected.
    Microsoft::WRL::ComPtr<IDropTarget> keepAlive(this);
    HRESULT hr = S_OK;
    try {
        HoldData(pDataObj);
        CWnd* pWnd = CWnd::FromHandle(m_hWnd);
        const CPoint point = ClientPoint(pt);
        // The drop point is judged like any other point of the drag.
        const DROPEFFECT dropDefault =
            FilterEffect(m_pOwner->OnDragOver(pWnd, &m_dataObject, grfKeyState, point), allowed) &
            ~DROPEFFECT_SCROLL;
        DROPEFFECT dropEffect = DROPEFFECT_NONE;
        if (m_pOwner != nullptr) {
            dropEffect = m_pOwner->OnDropEx(pWnd, &m_dataObject, dropDefault, allowed, point);
        }
        if (dropEffect == kDropExDeclined) {
            dropEffect = DROPEFFECT_NONE;
            if (m_pOwner != nullptr && dropDefault == DROPEFFECT_NONE) {
                m_pOwner->OnDragLeave(pWnd);
            } else if (m_pOwner != nullptr &&
                       m_pOwner->OnDrop(pWnd, &m_dataObject, dropDefault, point)) {
                dropEffect = dropDefault;
            }
        }
        *pdwEffect = dropEffect & allowed;
    } catch (...) {
        KeepException();
        hr = E_UNEXPECTED;
    }
    m_dataObject.Release();
    return hr;
}
