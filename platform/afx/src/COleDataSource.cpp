#include "afx/COleDataSource.h"

#include <wrl/client.h>

#include "AfxDataObject.h"
#include "AfxDropSource.h"
#include "AfxThreadState.h"
#include "afx/COleDropSource.h"
#include "afx/CRect.h"
#include "afx/CWnd.h"

namespace {

// The window that follows the pointer before the drag begins: the one holding the mouse,
// else the active window of this thread.
CWnd* DragWindow()
{
    HWND hWnd = ::GetCapture();
    if (hWnd == nullptr) {
        hWnd = ::GetActiveWindow();
    }
    return CWnd::FromHandle(hWnd);
}

}  // namespace

COleDataSource::COleDataSource() : m_pDataObject(AfxDataObject::Create()) {}

COleDataSource::~COleDataSource()
{
    // The blocks go now; a receiver that still holds the data object then finds nothing.
    m_pDataObject->Empty();
    m_pDataObject->Release();
}

void COleDataSource::CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal, LPFORMATETC lpFormatEtc)
{
    if (hGlobal == nullptr) {
        return;
    }
    FORMATETC fmt{cfFormat, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    if (lpFormatEtc != nullptr) {
        fmt = *lpFormatEtc;
        fmt.cfFormat = cfFormat;
    }
    m_pDataObject->Cache(fmt, hGlobal);
}

void COleDataSource::Empty()
{
    m_pDataObject->Empty();
}

LPDATAOBJECT COleDataSource::GetDataObject()
{
    m_pDataObject->AddRef();
    return m_pDataObject;
}

DROPEFFECT COleDataSource::DoDragDrop(DWORD dwEffects, LPCRECT lpRectStartDrag,
                                      COleDropSource* pDropSource)
{
    COleDropSource defaultSource;
    COleDropSource* pSource = pDropSource != nullptr ? pDropSource : &defaultSource;
    if (lpRectStartDrag != nullptr) {
        pSource->m_rectStartDrag = *lpRectStartDrag;
    } else {
        // Without a rectangle, a move of one pixel begins the drag.
        POINT pt{0, 0};
        ::GetCursorPos(&pt);
        pSource->m_rectStartDrag = CRect(pt.x, pt.y, pt.x + 1, pt.y + 1);
    }
    if (!pSource->OnBeginDrag(DragWindow())) {
        return DROPEFFECT_NONE;
    }

    Microsoft::WRL::ComPtr<IDropSource> dropSource;
    dropSource.Attach(AfxDropSource::Create(pSource));
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT hr = ::DoDragDrop(m_pDataObject, dropSource.Get(), dwEffects, &effect);
    // A handler's exception was kept while the system's loop ran; it goes on from here.
    AfxThreadState::Get().RethrowPendingException();
    return hr == DRAGDROP_S_DROP ? effect : DROPEFFECT_NONE;
}
