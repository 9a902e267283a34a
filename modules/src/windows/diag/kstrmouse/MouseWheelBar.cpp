#include "MouseWheelBar.h"

#include "WheelBarRule.h"
#include "ksx/KSXValue.h"

MouseWheelBar::MouseWheelBar() : m_pLabel(nullptr) {}

MouseWheelBar::~MouseWheelBar() = default;

void MouseWheelBar::Initialize(CWnd* label)
{
    SetRange(WheelBarRule::kLower, WheelBarRule::kUpper);
    SetPos(WheelBarRule::kLower);
    m_pLabel = label;
    SendMessage(PBM_SETMARQUEE, FALSE, 0);
    SetLabel(WheelBarRule::kLower);
    if (m_pLabel != nullptr) {
        m_pLabel->ShowWindow(SW_HIDE);
    }
}

void MouseWheelBar::StepUp()
{
    OffsetPos(WheelBarRule::kNudge);
    ShowBarAndLabel();
    const int value = WheelBarRule::afterStepUp(GetPos());
    SetLabel(value);
    SetPos(value);
}

void MouseWheelBar::StepDown()
{
    OffsetPos(-WheelBarRule::kNudge);
    ShowBarAndLabel();
    const int value = WheelBarRule::afterStepDown(GetPos());
    SetPos(value);
    SetLabel(value);
}

void MouseWheelBar::ShowBarAndLabel()
{
    ShowWindow(SW_SHOWNORMAL);
    if (m_pLabel != nullptr) {
        m_pLabel->ShowWindow(SW_SHOW);
    }
}

void MouseWheelBar::SetLabel(int value)
{
    if (m_pLabel == nullptr) {
        return;
    }
    const ksx::String text = KSXValue(value).toString(KSXValue::nilValue());
    m_pLabel->SetWindowText(reinterpret_cast<LPCTSTR>(text.getUCS2Buffer()));
}
