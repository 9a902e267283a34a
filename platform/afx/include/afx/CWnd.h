#pragma once
// A window: its handle, the operations the dialogs use, and the message map dispatch.
//
// A CWnd is bound to its HWND by Create, by DoModal (through a creation hook, so that
// WM_NCCREATE and WM_CREATE already reach the map) or by SubclassWindow. While bound, every
// message goes to the virtual WindowProc, which looks it up in the message maps (OnWndMsg)
// and hands the rest to DefWindowProc, the window's original procedure. At WM_NCDESTROY the
// binding is removed before the handle dies.
//
// An exception thrown by a handler never crosses the window procedure: it is caught there,
// the innermost modal dialog of the thread is ended, and the exception is thrown again from
// the next of CDialog::DoModal (after the dialog is destroyed), SendMessage, Create,
// DestroyWindow, UpdateWindow or CWinThread::Run on this thread.
#include <windows.h>

#include "afx/AfxMsgMap.h"
#include "afx/CCmdTarget.h"
#include "afx/CPoint.h"

class CDataExchange;
class CDC;
class COleDropTarget;

class CWnd : public CCmdTarget {
public:
    CWnd();
    // Destroys a window that is still bound to this object.
    ~CWnd() override;

    HWND m_hWnd;
    // The drag-and-drop registration of this window, ended when the window is destroyed.
    COleDropTarget* m_pDropTarget;

    operator HWND() const;
    HWND GetSafeHwnd() const;

    // Binding without subclassing; FALSE when this object or the handle is already bound.
    BOOL Attach(HWND hWndNew);
    // Unbinds (restoring the original procedure if this object subclassed the window).
    HWND Detach();
    // The bound wrapper of hWnd, or a temporary one for a foreign handle (the same one for
    // the same handle; kept until DeleteTempMap or, once its window is gone, until the
    // thread's outermost modal dialog ends). Null for a null handle.
    static CWnd* FromHandle(HWND hWnd);
    // The bound wrapper only; null for foreign handles.
    static CWnd* FromHandlePermanent(HWND hWnd);
    // Frees every temporary wrapper of this thread.
    static void DeleteTempMap();

    // Binds to an existing window and routes its messages through the message map.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    // Gives the window its original procedure back and unbinds; returns the handle.
    HWND UnsubclassWindow();

    // Creates a window bound to this object. With WS_CHILD, nID is the control id.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                        const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL DestroyWindow();

    CWnd* GetDlgItem(int nID) const;
    int GetDlgCtrlID() const;
    CWnd* GetParent() const;

    BOOL ShowWindow(int nCmdShow);
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowVisible() const;
    BOOL IsWindowEnabled() const;
    void SetWindowText(LPCTSTR lpszString);
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const;
    int GetWindowTextLength() const;

    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer = nullptr);
    BOOL KillTimer(UINT_PTR nIDEvent);

    // Returns the window that had the capture before, or null.
    CWnd* SetCapture();
    static CWnd* GetCapture();
    // Returns the window that had the focus before, or null.
    CWnd* SetFocus();
    static CWnd* GetFocus();

    void GetClientRect(LPRECT lpRect) const;
    void GetWindowRect(LPRECT lpRect) const;
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    // A null pWndInsertAfter means the top of the z-order (ignored with SWP_NOZORDER).
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);

    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void UpdateWindow();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // WM_SETICON; returns the previous icon.
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);

    // Runs DoDataExchange; FALSE when a control could not be bound or read.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    // Every message of a bound window arrives here: OnWndMsg, else DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Dispatches through the message maps; FALSE when no entry handled the message.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // The window's original procedure (the class's, or the one replaced by subclassing).
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Default handling of the message that this thread is handling now.
    LRESULT Default();

    // Called on a child's wrapper with a notification its parent received (WM_COMMAND,
    // WM_NOTIFY, WM_DRAWITEM, WM_CTLCOLORxxx). The base offers it to the child's own map as
    // WM_REFLECT_BASE + message. TRUE when handled, with the parent's result in *pResult.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // Offers the message this thread is handling now to the wrapper of hWndChild.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

protected:
    // Called after the handle is bound and before the window procedure is replaced.
    virtual void PreSubclassWindow();
    // Binds controls and moves data; the base does nothing.
    virtual void DoDataExchange(CDataExchange* pDX);
    // WM_COMMAND: offered to the control's wrapper first, then to the command entries.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);

    // Default handlers: each calls Default(), except where noted.
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnXButtonDown(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnXButtonUp(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    // Offers the message to the control's wrapper first (reflection), then Default().
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    // Offers the message to the control's wrapper first (reflection), then Default().
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnSysCommand(UINT nID, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    friend class AfxCreationHook;

    static LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    // Replaces the bound window's procedure by AfxWndProc, keeping the old one.
    void HookWindowProc();

    WNDPROC m_pfnSuper;
};
