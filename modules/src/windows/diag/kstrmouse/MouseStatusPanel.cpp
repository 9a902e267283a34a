#include "MouseStatusPanel.h"

#include "Registration.h"
#include "ksx/KSXValue.h"
#include "resource.h"

namespace texts = kstrmouse::texts;

namespace {

// The mouse pictures of one picture set; 0 where the set has no such picture.
struct PictureSet {
    int idle;
    int left;
    int right;
    int middle;
    int hidden[4];  // hidden (and disabled) before each choice; 0 ends the list
};

const PictureSet* FindPictureSet(std::uint32_t mouseType)
{
    static const PictureSet sets[] = {
        {IDC_MOUSE2_IDLE, IDC_MOUSE2_LEFT, IDC_MOUSE2_RIGHT, 0,
         {IDC_MOUSE2_LEFT, IDC_MOUSE2_RIGHT, 0, 0}},
        {IDC_MOUSE3_IDLE, IDC_MOUSE3_LEFT, IDC_MOUSE3_RIGHT, IDC_MOUSE3_MIDDLE,
         {IDC_MOUSE3_LEFT, IDC_MOUSE3_RIGHT, IDC_MOUSE3_MIDDLE, 0}},
        {IDC_WHEEL_IDLE, IDC_WHEEL_LEFT, IDC_WHEEL_RIGHT, IDC_WHEEL_MIDDLE,
         {IDC_WHEEL_IDLE, IDC_WHEEL_LEFT, IDC_WHEEL_RIGHT, IDC_WHEEL_MIDDLE}},
        {IDC_NUB_IDLE, IDC_NUB_LEFT, IDC_NUB_RIGHT, 0,
         {IDC_NUB_LEFT, IDC_NUB_RIGHT, 0, 0}},
    };
    return mouseType >= 1 && mouseType <= 4 ? &sets[mouseType - 1] : nullptr;
}

// The control's own visibility, whether or not the dialog shows yet.
bool HasVisibleStyle(const CWnd& control)
{
    return (::GetWindowLongW(control.m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
}

LPCTSTR Text(const harn5::HarnString& text)
{
    return reinterpret_cast<LPCTSTR>(text.getUCS2Buffer());
}

}  // namespace

MouseStatusPanel::MouseStatusPanel(CWnd& dialog) : m_dialog(dialog) {}

void MouseStatusPanel::bind(CDataExchange* pDX)
{
    DDX_Control(pDX, IDC_WHEEL_BAR, m_wheelBar);
    DDX_Control(pDX, IDC_CONTROL_MARKS, m_marks);
}

void MouseStatusPanel::initialiseWheelBar()
{
    m_wheelBar.Initialize(m_dialog.GetDlgItem(IDC_WHEEL_VALUE));
}

void MouseStatusPanel::showButtons(const Mouse& mouse)
{
    const PictureSet* pSet = FindPictureSet(mouse.mouseType);
    if (pSet == nullptr) {
        return;
    }
    int chosen = pSet->idle;
    if (mouse.state[Mouse::LeftButton] == Active) {
        chosen = pSet->left;
    } else if (mouse.state[Mouse::RightButton] == Active) {
        chosen = pSet->right;
    } else if (pSet->middle != 0 && mouse.state[Mouse::MiddleButton] == Active) {
        chosen = pSet->middle;
    }
    for (const int id : pSet->hidden) {
        if (id == 0) {
            break;
        }
        CWnd* pPicture = id != chosen ? m_dialog.GetDlgItem(id) : nullptr;
        if (pPicture != nullptr && HasVisibleStyle(*pPicture)) {
            pPicture->ShowWindow(SW_HIDE);
        }
        if (pPicture != nullptr && pPicture->IsWindowEnabled()) {
            pPicture->EnableWindow(FALSE);
        }
    }
    if (CWnd* pPicture = m_dialog.GetDlgItem(chosen)) {
        if (!pPicture->IsWindowEnabled()) {
            pPicture->EnableWindow(TRUE);
        }
        if (!pPicture->IsWindowVisible()) {
            pPicture->ShowWindow(SW_SHOWNORMAL);
        }
    }
}

void MouseStatusPanel::showMarks(const Mouse& mouse, bool sideButtonsAsked)
{
    const auto mark = [&mouse](const harn5::LocalizedString* label, Mouse::Control control) {
        return CControlMarksCtrl::Mark{Text(label->localizedString()), mouse.state[control]};
    };
    const auto sideMark = [&](const harn5::LocalizedString* label, Mouse::Control control) {
        CControlMarksCtrl::Mark shown = mark(label, control);
        shown.state = sideButtonsAsked && shown.state == Absent ? Untested : shown.state;
        return shown;
    };
    m_marks.show({mark(texts::MsgMouseCheckTiltLeft, Mouse::TiltLeft), mark(texts::MsgMouseCheckTiltRight, Mouse::TiltRight),
                  sideMark(texts::MsgMouseCheckBackButton, Mouse::BackButton),
                  sideMark(texts::MsgMouseCheckForwardButton, Mouse::ForwardButton)});
}

void MouseStatusPanel::showWheelNotch(bool towardUser)
{
    show(IDC_WHEEL_UP, towardUser ? SW_HIDE : SW_SHOW);
    show(IDC_WHEEL_DOWN, towardUser ? SW_SHOW : SW_HIDE);
    show(IDC_WHEEL_SCALE_BOTTOM, SW_SHOW);
    show(IDC_WHEEL_SCALE_TOP, SW_SHOW);
    if (towardUser) {
        m_wheelBar.StepDown();
    } else {
        m_wheelBar.StepUp();
    }
}

void MouseStatusPanel::showTilt(bool left)
{
    show(IDC_TILT_LEFT, left ? SW_SHOW : SW_HIDE);
    show(IDC_TILT_RIGHT, left ? SW_HIDE : SW_SHOW);
}

void MouseStatusPanel::hideTilt()
{
    show(IDC_TILT_RIGHT, SW_HIDE);
    show(IDC_TILT_LEFT, SW_HIDE);
}

void MouseStatusPanel::showPosition(POINT cursor)
{
    const int x = cursor.x;
    const int y = cursor.y;
    setText(IDC_POSITION_X, Text(KSXValue(x).toString(KSXValue::nilValue())));
    setText(IDC_POSITION_Y, Text(KSXValue(y).toString(KSXValue::nilValue())));
}

void MouseStatusPanel::swapFaces()
{
    CWnd* pSmiley = m_dialog.GetDlgItem(IDC_SMILEY);
    const bool smiling = pSmiley != nullptr && pSmiley->IsWindowVisible();
    show(IDC_SMILEY, smiling ? SW_HIDE : SW_SHOWNORMAL);
    show(IDC_NON_SMILEY, smiling ? SW_SHOWNORMAL : SW_HIDE);
}

void MouseStatusPanel::resetDragPictures()
{
    show(IDC_DROP_TARGET_FILLED, SW_HIDE);
    show(IDC_DROP_TARGET, SW_SHOWNORMAL);
    show(IDC_DRAG_SOURCE, SW_SHOWNORMAL);
}

void MouseStatusPanel::show(int id, int nCmdShow)
{
    CWnd* pControl = m_dialog.GetDlgItem(id);
    if (pControl != nullptr && HasVisibleStyle(*pControl) != (nCmdShow != SW_HIDE)) {
        pControl->ShowWindow(nCmdShow);
    }
}

void MouseStatusPanel::setText(int id, LPCTSTR text)
{
    ::SetDlgItemTextW(m_dialog.m_hWnd, id, text);
}
