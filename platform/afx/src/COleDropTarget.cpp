#include "afx/COleDropTarget.h"

#include <commctrl.h>

#include "AfxDropTarget.h"
#include "afx/CWnd.h"

namespace {

// Ends the registration when the window is destroyed: the system must not keep a target
// for a window that is gone.
LRESULT CALLBACK RevokeOnDestroy(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR, DWORD_PTR refData)
{
    if (message == WM_DESTROY) {
        reinterpret_cast<COleDropTarget*>(refData)->Revoke();
    }
    return ::DefSubclassProc(hWnd, message, wParam, lParam);
}

}  // namespace

COleDropTarget::COleDropTarget() : m_hWnd(nullptr), m_pTarget(nullptr) {}

COleDropTarget::~COleDropTarget()
{
    COleDropTarget::Revoke();
}

BOOL COleDropTarget::Register(CWnd* pWnd)
{
    HWND hWnd = pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
    if (m_pTarget != nullptr || hWnd == nullptr || !::IsWindow(hWnd)) {
        return FALSE;
    }
    AfxDropTarget* pTarget = AfxDropTarget::Create(this, hWnd);
    if (FAILED(::RegisterDragDrop(hWnd, pTarget))) {
        pTarget->Disconnect();
        pTarget->Release();
        return FALSE;
    }
    if (!::SetWindowSubclass(hWnd, &RevokeOnDestroy, reinterpret_cast<UINT_PTR>(this),
                             reinterpret_cast<DWORD_PTR>(this))) {
        ::RevokeDragDrop(hWnd);
        pTarget->Disconnect();
        pTarget->Release();
        return FALSE;
    }
    m_hWnd = hWnd;
    m_pTarget = pTarget;
    return TRUE;
}

void COleDropTarget::Revoke()
{
    if (m_pTarget == nullptr) {
        return;
    }
    if (::IsWindow(m_hWnd)) {
        ::RevokeDragDrop(m_hWnd);
        ::RemoveWindowSubclass(m_hWnd, &RevokeOnDestroy, reinterpret_cast<UINT_PTR>(this));
    }
    // The system may hold the object a little longer; it no longer reaches this one.
    m_pTarget->Disconnect();
    m_pTarget->Release();
    m_pTarget = nullptr;
    m_hWnd = nullptr;
}

DROPEFFECT COleDropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

BOOL COleDropTarget::OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint)
{
    return FALSE;
}

DROPEFFECT COleDropTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint)
{
    return static_cast<DROPEFFECT>(-1);
}

void COleDropTarget::OnDragLeave(CWnd*) {}
