#pragma once
// The classic mouse test: a live picture of the mouse with its held buttons, the pointer
// position, the wheel bar and arrows, a double-click face and a drag-and-drop pair; the user
// ends it with Pass or Fail, and host parameters decide what must be done before Pass.
#include <afxwin.h>
#include <afxole.h>

#include <cstdint>

#include <string>

#include "ButtonChords.h"
#include "COleDropWndTarget.h"
#include "DoubleClickTest.h"
#include "MouseDragSource.h"
#include "MouseStatusPanel.h"
#include "WindowsMouse.h"
#include "harn5/TestResult.h"
#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"
#include "ksxui/StaticEdit.h"

class CKstrMoreInfo;

class CKstrMouseDlg : public KSXDialog {
public:
    // Progress of a drag that this dialog started.
    enum DragState { Idle = 0, Armed = 1, Dragged = 2 };

    explicit CKstrMouseDlg(CWnd* pParent = nullptr);
    ~CKstrMouseDlg() override;

    // True on Windows 10 PE, where the drag-and-drop check is not offered; asked afresh each time.
    static bool Windows10PE();

    // Called by the drop target when a drop on the target was accepted: the filled target shows
    // for a second.
    void StartDropTimer();

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    // Cancel, Escape and the close box: the user gave up.
    void OnCancel() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    // WM_LBUTTONDBLCLK: the dialog's class takes double clicks, so a quick second press comes so;
    // it is a press like any other.
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    // WM_XBUTTONDOWN/UP: the side buttons, marked while held and once used.
    afx_msg void OnXButtonDown(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnXButtonUp(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    // WM_CAPTURECHANGED: the dialog knows whether it still holds the capture.
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg void OnBnClickedPass();
    afx_msg void OnBnClickedFail();
    afx_msg void OnBnClickedMoreInfo();
    afx_msg void OnBnDoubleClickedFace();
    afx_msg void OnEnSetFocusInstructions();

    DECLARE_MESSAGE_MAP()

private:
    void SetDialogTexts();
    // The marks of the tilt directions and side buttons follow their states.
    void UpdateControlMarks();
    void RefreshPassButton();
    bool AllRequiredChecksDone() const;
    // The line under the instructions: what is still to do, while the policy keeps Pass closed.
    void ShowMissingChecks(bool passEnabled);
    void StartDrag();
    void OnWheelTimer();
    void OnDropTimer();
    void OnPositionTimer();
    void OnStopTimer();
    void CaptureMouse();
    void ReleaseMouse();
    void SetControlText(int id, LPCTSTR text);

    COleDropWndTarget m_dropTarget;
    MouseDragSource m_dragSource;
    WindowsMouse m_mouse;
    UINT m_nWheelTimer;
    UINT m_nPositionTimer;
    UINT m_nDropTimer;
    bool m_bWheelMoved;
    UINT m_iForcedMouseType;
    DragState m_iDragState;
    bool m_bDoubleClickDone;
    bool m_bDragDropDone;
    std::wstring m_missingLine;      // the line under the instructions as shown
    bool m_bCaptured;
    ButtonChords m_chords;
    bool m_bMiddleSeen;
    DoubleClickTest m_smiley;
    DoubleClickTest m_nonSmiley;
    CWnd* m_pPassButton;
    HICON m_hIcon;
    StaticEdit m_instructions;
    CAutoTimer m_stopTimer;

public:
    // The verdict, read by the entry point once DoModal has returned.
    harn5::TestResult m_result;

private:
    CKstrMoreInfo* m_pMoreInfo;
    MouseStatusPanel m_panel;
};
