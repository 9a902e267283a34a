#pragma once
// A face picture on a bitmap button. Presses on it count as presses on the dialog: each button
// message goes to the parent instead, and only the button's own double-click notification
// stays with the face.
#include <afxext.h>

class DoubleClickTest : public CBitmapButton {
public:
    DoubleClickTest();
    ~DoubleClickTest() override;

protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

private:
    void PostToParent(UINT message, UINT nFlags);
};
