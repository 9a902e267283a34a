#pragma once
// Message maps. Each class with DECLARE_MESSAGE_MAP owns a static table of entries; a window
// walks the tables from its most derived class to the bases and calls the first entry that
// matches, and hands everything unmatched to its default procedure.
//
// Every entry holds a captureless lambda made inside the class's own map function, where
// `ThisClass` names the class: the lambda decodes the message parameters and calls the
// handler with the framework's documented signature, so protected handlers are reachable
// and a handler with the wrong signature does not compile.
//
// Command and message entries take a pointer to member, as in
//     ON_BN_CLICKED(IDC_PASS, &CMyDlg::OnBnClickedPass)
//     ON_MESSAGE(WM_APP_DONE, &CMyDlg::OnAppDone)
// while the ON_WM_xxx entries name no function: they call ThisClass::OnXxx.
#include <windows.h>

#include "afx/CPoint.h"

class CCmdTarget;
class CWnd;
class CDC;

// Marks message handlers in class declarations; it expands to nothing.
#define afx_msg

// A message reflected to a child's wrapper comes back through the child's own map as
// WM_REFLECT_BASE + the original message.
#define WM_REFLECT_BASE 0xBC00
// The key under which ON_WM_CTLCOLOR files all seven WM_CTLCOLORxxx messages.
#define AFX_WM_CTLCOLOR 0x0019

using AFX_PMSG = LRESULT (*)(CCmdTarget* target, UINT message, WPARAM wParam, LPARAM lParam);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  // window message; WM_COMMAND for command entries
    UINT nCode;     // command entries: notification code (0 for menu, accelerator, BN_CLICKED)
    UINT nID;       // command entries: first control id
    UINT nLastID;   // command entries: last control id
    AFX_PMSG pfn;   // null ends a table
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null for the root of the hierarchy
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Calls a command handler `void (C::*)()` on the object.
template <class T, class C>
LRESULT AfxCallCommand(T* target, void (C::*pfn)())
{
    (target->*pfn)();
    return 0;
}

// Calls a message handler `LRESULT (C::*)(WPARAM, LPARAM)` on the object.
template <class T, class C>
LRESULT AfxCallMessage(T* target, LRESULT (C::*pfn)(WPARAM, LPARAM), WPARAM wParam, LPARAM lParam)
{
    return (target->*pfn)(wParam, lParam);
}

#define DECLARE_MESSAGE_MAP()                                   \
protected:                                                      \
    static const AFX_MSGMAP* GetThisMessageMap();               \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                          \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }   \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                     \
    {                                                                                   \
        using ThisClass [[maybe_unused]] = theClass;                                    \
        using TheBaseClass = baseClass;                                                 \
        static const AFX_MSGMAP_ENTRY afxMessageEntries[] = {

#define END_MESSAGE_MAP()                                                               \
            {0, 0, 0, 0, nullptr}                                                       \
        };                                                                              \
        static const AFX_MSGMAP afxMessageMap = {&TheBaseClass::GetThisMessageMap,      \
                                                 &afxMessageEntries[0]};                \
        return &afxMessageMap;                                                          \
    }

// One entry for a window message; the body sees afxThis (ThisClass*), afxMessage, afxW, afxL.
#define AFX_MSG_ENTRY(msg, ...)                                                         \
    {static_cast<UINT>(msg), 0, 0, 0,                                                   \
     []([[maybe_unused]] CCmdTarget* afxTarget, [[maybe_unused]] UINT afxMessage,       \
        [[maybe_unused]] WPARAM afxW, [[maybe_unused]] LPARAM afxL) -> LRESULT {        \
         [[maybe_unused]] ThisClass* afxThis = static_cast<ThisClass*>(afxTarget);      \
         __VA_ARGS__                                                                    \
     }},

// One entry for WM_COMMAND with the given notification code and control id.
#define ON_CONTROL(code, id, memberFxn)                                                 \
    {WM_COMMAND, static_cast<UINT>(code), static_cast<UINT>(id), static_cast<UINT>(id), \
     [](CCmdTarget* afxTarget, UINT, WPARAM, LPARAM) -> LRESULT {                       \
         return AfxCallCommand(static_cast<ThisClass*>(afxTarget), memberFxn);          \
     }},

#define ON_COMMAND(id, memberFxn) ON_CONTROL(0, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)

// LRESULT memberFxn(WPARAM, LPARAM)
#define ON_MESSAGE(message, memberFxn) \
    AFX_MSG_ENTRY(message, return AfxCallMessage(afxThis, memberFxn, afxW, afxL);)

// int OnCreate(LPCREATESTRUCT)
#define ON_WM_CREATE() \
    AFX_MSG_ENTRY(WM_CREATE, return afxThis->OnCreate(reinterpret_cast<LPCREATESTRUCT>(afxL));)
// void OnDestroy()
#define ON_WM_DESTROY() AFX_MSG_ENTRY(WM_DESTROY, afxThis->OnDestroy(); return 0;)
// void OnTimer(UINT_PTR nIDEvent)
#define ON_WM_TIMER() \
    AFX_MSG_ENTRY(WM_TIMER, afxThis->OnTimer(static_cast<UINT_PTR>(afxW)); return 0;)
// void OnPaint()
#define ON_WM_PAINT() AFX_MSG_ENTRY(WM_PAINT, afxThis->OnPaint(); return 0;)
// BOOL OnEraseBkgnd(CDC* pDC)
#define ON_WM_ERASEBKGND()                                    \
    AFX_MSG_ENTRY(WM_ERASEBKGND, CDC afxDC;                   \
                  afxDC.Attach(reinterpret_cast<HDC>(afxW));  \
                  return afxThis->OnEraseBkgnd(&afxDC);)

// void OnXxx(UINT nFlags, CPoint point), point in client coordinates
#define AFX_MOUSE_ENTRY(msg, handler) \
    AFX_MSG_ENTRY(msg, afxThis->handler(static_cast<UINT>(afxW), CPoint(afxL)); return 0;)
#define ON_WM_LBUTTONDOWN() AFX_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_MOUSE_ENTRY(WM_RBUTTONDOWN, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_MOUSE_ENTRY(WM_RBUTTONUP, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_MOUSE_ENTRY(WM_RBUTTONDBLCLK, OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_MOUSE_ENTRY(WM_MBUTTONDOWN, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_MOUSE_ENTRY(WM_MBUTTONUP, OnMButtonUp)
#define ON_WM_MOUSEMOVE() AFX_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)

// void OnXButtonDown(UINT nFlags, UINT nButton, CPoint point); nButton is XBUTTON1 or XBUTTON2
#define AFX_XBUTTON_ENTRY(msg, handler)                                              \
    AFX_MSG_ENTRY(msg, afxThis->handler(GET_KEYSTATE_WPARAM(afxW),                   \
                                        GET_XBUTTON_WPARAM(afxW), CPoint(afxL));     \
                  return TRUE;)
#define ON_WM_XBUTTONDOWN() AFX_XBUTTON_ENTRY(WM_XBUTTONDOWN, OnXButtonDown)
#define ON_WM_XBUTTONUP() AFX_XBUTTON_ENTRY(WM_XBUTTONUP, OnXButtonUp)

// BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt), pt in screen coordinates
#define ON_WM_MOUSEWHEEL()                                                                \
    AFX_MSG_ENTRY(WM_MOUSEWHEEL,                                                          \
                  return afxThis->OnMouseWheel(GET_KEYSTATE_WPARAM(afxW),                 \
                                               GET_WHEEL_DELTA_WPARAM(afxW), CPoint(afxL));)
// void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt), pt in screen coordinates
#define ON_WM_MOUSEHWHEEL()                                                               \
    AFX_MSG_ENTRY(WM_MOUSEHWHEEL,                                                         \
                  afxThis->OnMouseHWheel(GET_KEYSTATE_WPARAM(afxW),                       \
                                         GET_WHEEL_DELTA_WPARAM(afxW), CPoint(afxL));     \
                  return 0;)
// HCURSOR OnQueryDragIcon()
#define ON_WM_QUERYDRAGICON() \
    AFX_MSG_ENTRY(WM_QUERYDRAGICON, return reinterpret_cast<LRESULT>(afxThis->OnQueryDragIcon());)
// BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
#define ON_WM_SETCURSOR()                                                                  \
    AFX_MSG_ENTRY(WM_SETCURSOR,                                                            \
                  return afxThis->OnSetCursor(CWnd::FromHandle(reinterpret_cast<HWND>(afxW)), \
                                              LOWORD(afxL), HIWORD(afxL));)
// void OnCaptureChanged(CWnd* pWnd)
#define ON_WM_CAPTURECHANGED()                                                                  \
    AFX_MSG_ENTRY(WM_CAPTURECHANGED,                                                            \
                  afxThis->OnCaptureChanged(CWnd::FromHandle(reinterpret_cast<HWND>(afxL)));    \
                  return 0;)
// HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor), for every WM_CTLCOLORxxx;
// nCtlColor is CTLCOLOR_MSGBOX ... CTLCOLOR_STATIC.
#define ON_WM_CTLCOLOR()                                                                    \
    AFX_MSG_ENTRY(AFX_WM_CTLCOLOR, CDC afxDC;                                               \
                  afxDC.Attach(reinterpret_cast<HDC>(afxW));                                \
                  return reinterpret_cast<LRESULT>(afxThis->OnCtlColor(                     \
                      &afxDC, CWnd::FromHandle(reinterpret_cast<HWND>(afxL)),               \
                      afxMessage - WM_CTLCOLORMSGBOX));)
// void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct)
#define ON_WM_DRAWITEM()                                                                    \
    AFX_MSG_ENTRY(WM_DRAWITEM,                                                              \
                  afxThis->OnDrawItem(static_cast<int>(afxW),                               \
                                      reinterpret_cast<LPDRAWITEMSTRUCT>(afxL));            \
                  return TRUE;)
// void OnSysCommand(UINT nID, LPARAM lParam)
#define ON_WM_SYSCOMMAND() \
    AFX_MSG_ENTRY(WM_SYSCOMMAND, afxThis->OnSysCommand(static_cast<UINT>(afxW), afxL); return 0;)
