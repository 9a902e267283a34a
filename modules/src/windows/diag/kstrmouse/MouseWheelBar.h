#pragma once
// A vertical bar that climbs and falls with the mouse wheel, with a label that shows its value.
#include <afxcmn.h>

class MouseWheelBar : public CProgressCtrl {
public:
    MouseWheelBar();
    ~MouseWheelBar() override;

    // Range 0..100 at 0, no marquee; `label` shows the value and starts hidden with "0".
    void Initialize(CWnd* label);
    // One wheel step away from the user: the bar and its label show and the value rises.
    void StepUp();
    // One wheel step toward the user: the bar and its label show and the value falls.
    void StepDown();

private:
    void ShowBarAndLabel();
    void SetLabel(int value);

    CWnd* m_pLabel;
};
