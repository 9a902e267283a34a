#include "afx/COleDropTarget.h"

#include "AfxDropTarget.h"
#include "afx/CWnd.h"

COleDropTarget::COleDropTarget() : m_hWnd(nullptr), m_pWnd(nullptr), m_pTarget(nullptr) {}

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
    // The window's procedure revokes at WM_DESTROY.
    pWnd->m_pDropTarget = this;
    m_hWnd = hWnd;
    m_pWnd = pWnd;
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
    }
    // The wrapper is looked at only while it is still the window's own.
    if (CWnd::FromHandlePermanent(m_hWnd) == m_pWnd && m_pWnd->m_pDropTarget == this) {
        m_pWnd->m_pDropTarget = nullptr;
    }
    // The system may hold the object a little longer; it no longer reaches this one.
    m_pTarget->Disconnect();
    m_pTarget->Release();
    m_pTarget = nullptr;
    m_hWnd = nullptr;
    m_pWnd = nullptr;
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
