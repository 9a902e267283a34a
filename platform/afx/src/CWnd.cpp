#include "afx/CWnd.h"

#include <exception>
#include <memory>

#include "AfxCreationHook.h"
#include "afx/COleDropTarget.h"
#include "AfxThreadState.h"
#include "afx/CDC.h"
#include "afx/CDataExchange.h"
#include "afx/CUserException.h"
#include "afx/CWinApp.h"

namespace {

// Offers a notification to the child's wrapper, when the child has one.
BOOL OfferToChild(HWND hWndChild, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    CWnd* pChild = CWnd::FromHandlePermanent(hWndChild);
    return pChild != nullptr && pChild->OnChildNotify(message, wParam, lParam, pResult);
}

bool IsCtlColorMessage(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

}  // namespace

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_DRAWITEM()
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

CWnd::CWnd() : m_hWnd(nullptr), m_pDropTarget(nullptr), m_pfnSuper(nullptr) {}

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this) {
        // WM_NCDESTROY unbinds this object.
        ::DestroyWindow(m_hWnd);
    }
    if (m_hWnd != nullptr) {
        Detach();
    }
}

CWnd::operator HWND() const
{
    return m_hWnd;
}

HWND CWnd::GetSafeHwnd() const
{
    return m_hWnd;
}

BOOL CWnd::Attach(HWND hWndNew)
{
    if (m_hWnd != nullptr || hWndNew == nullptr) {
        return FALSE;
    }
    if (!AfxThreadState::Get().permanentMap.emplace(hWndNew, this).second) {
        return FALSE;
    }
    m_hWnd = hWndNew;
    return TRUE;
}

HWND CWnd::Detach()
{
    HWND hWnd = m_hWnd;
    if (hWnd == nullptr) {
        return nullptr;
    }
    auto& map = AfxThreadState::Get().permanentMap;
    auto it = map.find(hWnd);
    if (it != map.end() && it->second == this) {
        map.erase(it);
        if (m_pfnSuper != nullptr &&
            reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC)) == &AfxWndProc) {
            ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
        }
    }
    m_pfnSuper = nullptr;
    m_hWnd = nullptr;
    return hWnd;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (hWnd == nullptr) {
        return nullptr;
    }
    if (CWnd* pWnd = FromHandlePermanent(hWnd)) {
        return pWnd;
    }
    auto& temp = AfxThreadState::Get().tempMap;
    auto it = temp.find(hWnd);
    if (it == temp.end()) {
        auto wrapper = std::make_unique<CWnd>();
        wrapper->m_hWnd = hWnd;
        it = temp.emplace(hWnd, std::move(wrapper)).first;
    }
    return it->second.get();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    const auto& map = AfxThreadState::Get().permanentMap;
    auto it = map.find(hWnd);
    return it == map.end() ? nullptr : it->second;
}

void CWnd::DeleteTempMap()
{
    AfxThreadState::Get().DeleteTempWrappers(false);
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!::IsWindow(hWnd) || !Attach(hWnd)) {
        return FALSE;
    }
    PreSubclassWindow();
    HookWindowProc();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    if (pParent == nullptr) {
        return FALSE;
    }
    HWND hWnd = ::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID));
    return hWnd != nullptr && SubclassWindow(hWnd);
}

HWND CWnd::UnsubclassWindow()
{
    return Detach();
}

void CWnd::HookWindowProc()
{
    auto previous = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(
        m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    // A window left hooked by an earlier binding has no procedure of its own to return to.
    m_pfnSuper = previous == &AfxWndProc ? nullptr : previous;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID)
{
    if (m_hWnd != nullptr) {
        ::SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    HWND hWndParent = pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr;
    HMENU hMenuOrId = (dwStyle & WS_CHILD) != 0
                          ? reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID))
                          : nullptr;
    HWND hWnd = nullptr;
    {
        AfxCreationHook hook(this);
        if (!hook.Installed()) {
            return FALSE;
        }
        hWnd = ::CreateWindowExW(0, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                                 rect.right - rect.left, rect.bottom - rect.top, hWndParent,
                                 hMenuOrId, AfxGetInstanceHandle(), nullptr);
    }
    AfxThreadState::Get().RethrowPendingException();
    return hWnd != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr) {
        return FALSE;
    }
    HWND hWnd = m_hWnd;
    const bool bound = FromHandlePermanent(hWnd) == this;
    const BOOL destroyed = ::DestroyWindow(hWnd);
    if (destroyed && !bound) {
        m_hWnd = nullptr;  // a bound wrapper was already released at WM_NCDESTROY
    }
    AfxThreadState::Get().RethrowPendingException();
    return destroyed;
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    return ::ShowWindow(m_hWnd, nCmdShow);
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    return ::EnableWindow(m_hWnd, bEnable);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

void CWnd::SetWindowText(LPCTSTR lpszString)
{
    ::SetWindowTextW(m_hWnd, lpszString);
}

int CWnd::GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const
{
    return ::GetWindowTextW(m_hWnd, lpszStringBuf, nMaxCount);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLengthW(m_hWnd);
}

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer)
{
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent)
{
    return ::KillTimer(m_hWnd, nIDEvent);
}

CWnd* CWnd::SetCapture()
{
    return FromHandle(::SetCapture(m_hWnd));
}

CWnd* CWnd::GetCapture()
{
    return FromHandle(::GetCapture());
}

CWnd* CWnd::SetFocus()
{
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

void CWnd::GetClientRect(LPRECT lpRect) const
{
    ::GetClientRect(m_hWnd, lpRect);
}

void CWnd::GetWindowRect(LPRECT lpRect) const
{
    ::GetWindowRect(m_hWnd, lpRect);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const
{
    ::ClientToScreen(m_hWnd, lpPoint);
}

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPPOINT lpPoint) const
{
    ::ScreenToClient(m_hWnd, lpPoint);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left,
               lpRect->bottom - lpRect->top, bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    HWND hWndInsertAfter = pWndInsertAfter != nullptr ? pWndInsertAfter->m_hWnd : HWND_TOP;
    return ::SetWindowPos(m_hWnd, hWndInsertAfter, x, y, cx, cy, nFlags);
}

void CWnd::Invalidate(BOOL bErase)
{
    ::InvalidateRect(m_hWnd, nullptr, bErase);
}

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase)
{
    ::InvalidateRect(m_hWnd, lpRect, bErase);
}

void CWnd::UpdateWindow()
{
    ::UpdateWindow(m_hWnd);
    AfxThreadState::Get().RethrowPendingException();
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = ::SendMessageW(m_hWnd, message, wParam, lParam);
    AfxThreadState::Get().RethrowPendingException();
    return result;
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon)
{
    return reinterpret_cast<HICON>(SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL,
                                               reinterpret_cast<LPARAM>(hIcon)));
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof(SCROLLINFO);
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

void CWnd::ShowScrollBar(UINT nBar, BOOL bShow)
{
    ::ShowScrollBar(m_hWnd, static_cast<int>(nBar), bShow);
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange(this, bSaveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (const CUserException&) {
        return FALSE;
    }
    return TRUE;
}

LRESULT CALLBACK CWnd::AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = FromHandlePermanent(hWnd);
    if (pWnd == nullptr) {
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    }
    AfxThreadState& state = AfxThreadState::Get();
    const MSG outer = state.currentMessage;
    state.currentMessage = MSG{};
    state.currentMessage.hwnd = hWnd;
    state.currentMessage.message = message;
    state.currentMessage.wParam = wParam;
    state.currentMessage.lParam = lParam;

    LRESULT result = 0;
    try {
        result = pWnd->WindowProc(message, wParam, lParam);
    } catch (...) {
        state.StoreException(std::current_exception());
        // A failed WM_NCCREATE (FALSE) or WM_CREATE (-1) refuses the window.
        result = message == WM_CREATE ? -1 : 0;
    }
    // The system must not keep a drop target for a window that is gone.
    if (message == WM_DESTROY && pWnd->m_pDropTarget != nullptr) {
        pWnd->m_pDropTarget->Revoke();
    }
    if (message == WM_NCDESTROY && pWnd->m_hWnd == hWnd) {
        pWnd->Detach();
    }
    state.currentMessage = outer;
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result)) {
        result = DefWindowProc(message, wParam, lParam);
    }
    return result;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam)) {
            return FALSE;
        }
        result = 1;
    } else if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header == nullptr ||
            !OfferToChild(header->hwndFrom, message, wParam, lParam, &result)) {
            return FALSE;
        }
    } else {
        const UINT key = IsCtlColorMessage(message) ? AFX_WM_CTLCOLOR : message;
        const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(key, 0, 0);
        if (entry == nullptr) {
            return FALSE;
        }
        result = entry->pfn(this, message, wParam, lParam);
    }
    if (pResult != nullptr) {
        *pResult = result;
    }
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    HWND hWndCtrl = reinterpret_cast<HWND>(lParam);
    UINT nCode = HIWORD(wParam);
    if (hWndCtrl != nullptr) {
        if (OfferToChild(hWndCtrl, WM_COMMAND, wParam, lParam, nullptr)) {
            return TRUE;
        }
    } else {
        nCode = 0;  // menus and accelerators count as plain commands
    }
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(WM_COMMAND, nCode, LOWORD(wParam));
    if (entry == nullptr) {
        return FALSE;
    }
    entry->pfn(this, WM_COMMAND, wParam, lParam);
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pfnSuper != nullptr) {
        return ::CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
    }
    return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG& current = AfxThreadState::Get().currentMessage;
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    const MSG& current = AfxThreadState::Get().currentMessage;
    return OfferToChild(hWndChild, current.message, current.wParam, current.lParam, pResult);
}

void CWnd::PreSubclassWindow() {}

void CWnd::DoDataExchange(CDataExchange*) {}

int CWnd::OnCreate(LPCREATESTRUCT)
{
    return static_cast<int>(Default());
}

void CWnd::OnDestroy()
{
    Default();
}

void CWnd::OnTimer(UINT_PTR)
{
    Default();
}

void CWnd::OnPaint()
{
    Default();
}

BOOL CWnd::OnEraseBkgnd(CDC*)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnRButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnMButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnMButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnXButtonDown(UINT, UINT, CPoint)
{
    Default();
}

void CWnd::OnXButtonUp(UINT, UINT, CPoint)
{
    Default();
}

void CWnd::OnMouseMove(UINT, CPoint)
{
    Default();
}

BOOL CWnd::OnMouseWheel(UINT, short, CPoint)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnMouseHWheel(UINT, short, CPoint)
{
    Default();
}

HCURSOR CWnd::OnQueryDragIcon()
{
    return reinterpret_cast<HCURSOR>(Default());
}

BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnCaptureChanged(CWnd*)
{
    Default();
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT result = 0;
    if (pWnd != nullptr && ReflectLastMsg(pWnd->m_hWnd, &result)) {
        return reinterpret_cast<HBRUSH>(result);
    }
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct != nullptr && lpDrawItemStruct->CtlType != ODT_MENU &&
        ReflectLastMsg(lpDrawItemStruct->hwndItem)) {
        return;
    }
    Default();
}

void CWnd::OnSysCommand(UINT, LPARAM)
{
    Default();
}
