#pragma once
// The guided click test: one mouse action at a time (left, right and middle click, the two side
// buttons on a gaming mouse, a double click, a drag and drop, the wheel up and down), each a
// numbered step with its instruction and a large mouse picture that follows every press. The
// user can fail the step on screen, skip an optional middle button, or cancel. Which step comes
// when, and the verdict, are ClickTestSteps'; the dialog keeps the windows.
#include <afxcmn.h>
#include <afxwin.h>

#include <memory>

#include "ClickTestPictures.h"
#include "ClickTestSteps.h"
#include "DragTracker.h"
#include "MouseStringRenderer.h"
#include "MouseWheelBar.h"
#include "harn5/LocalizedString.h"
#include "harn5/TestResult.h"

class CMouseClickTestDlg : public CDialog {
public:
    CMouseClickTestDlg(CWnd* pParent, bool isGamingMouse);
    ~CMouseClickTestDlg() override;

    // Runs the dialog modally and answers its verdict.
    harn5::TestResult runTest();

    // Shared by every run in this process: the instruction on screen (null before any run)
    // and where the user last moved the dialog (0, 0 until then).
    static const harn5::LocalizedString* currentInstruction();
    static POINT rememberedPosition();

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    // Enter and IDOK end nothing: the test ends by its last step, Fail or Cancel.
    void OnOK() override;

    afx_msg void OnPaint();
    afx_msg void OnDestroy();
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg virtual void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnXButtonDown(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnXButtonUp(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnBnClickedButtonFail();
    afx_msg void OnBnClickedCancel();
    afx_msg void OnBnClickedButtonSkip();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    // The step number, instruction and hint lines that touch `area` (client coordinates).
    void drawTexts(HDC dc, const RECT& area);
    // The step the machine is at: its number, and Cancel and Fail within reach again.
    void setTestIndex();
    void showTestStep();
    // A press or release of `button`: the step's own takes the capture and shows the pressed
    // picture, or gives the capture back and completes the step.
    void pressStepButton(ClickTestSteps::Button button);
    void releaseStepButton(ClickTestSteps::Button button);
    // The current step was done: success picture, pause, then the next step or the end.
    void completeStep();
    void abandonDrag();
    void setGamingMouseImages();
    void setDefaultMouseImages();
    void setDragImages();
    void setTestInstruction();
    void hideMouseImages();
    void enabledScrollingImages(int controlId, bool show);
    void setUpDragStep();
    void setUpWheelUpStep();
    void setUpWheelDownStep();
    void stepPause(unsigned ms);

    bool isControlClicked(int controlId, CPoint point);
    bool isCloseClicked(CPoint point);
    bool isInsideDoubleClickArea(CPoint point);
    bool isDragSourceClicked(CPoint point);
    bool isInDropArea(CPoint point);

    ClickTestSteps m_steps;
    bool m_isMovingWindow;
    UINT_PTR m_positionTimerId;
    POINT m_lastCursorPos;
    DragTracker m_drag;
    MouseWheelBar m_wheelBar;
    COLORREF m_wheelBarColor;
    COLORREF m_wheelBarFullColor;
    ClickTestPictures m_pictures;
    HICON m_icon;
    CBrush m_backgroundBrush;
    std::shared_ptr<CMouseStringRenderer> m_renderer;
};
