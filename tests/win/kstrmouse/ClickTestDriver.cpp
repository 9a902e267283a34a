#include "ClickTestDriver.h"

#include "resource.h"

namespace clicktest {

LPARAM At(const Dialog& d, int id)
{
    POINT p = d.Centre(id);
    ::ScreenToClient(d.hwnd(), &p);
    return MAKELPARAM(p.x, p.y);
}

LPARAM Plain(const Dialog& d)
{
    RECT client{};
    ::GetClientRect(d.hwnd(), &client);
    return MAKELPARAM(client.right / 8, client.bottom * 3 / 4);
}

void Click(const Dialog& d, UINT down, LPARAM at, WPARAM held)
{
    d.Send(down, held, at);
    d.Send(down + 1, 0, at);
}

void LeftClick(const Dialog& d) { Click(d, WM_LBUTTONDOWN, Plain(d), MK_LBUTTON); }
void RightClick(const Dialog& d) { Click(d, WM_RBUTTONDOWN, Plain(d), MK_RBUTTON); }
void MiddleClick(const Dialog& d) { Click(d, WM_MBUTTONDOWN, Plain(d), MK_MBUTTON); }

void SideButton(const Dialog& d, WORD button)
{
    d.Send(WM_XBUTTONDOWN, MAKEWPARAM(button == XBUTTON1 ? MK_XBUTTON1 : MK_XBUTTON2, button), Plain(d));
    d.Send(WM_XBUTTONUP, MAKEWPARAM(0, button), Plain(d));
}

void DoubleClickTarget(const Dialog& d)
{
    Click(d, WM_LBUTTONDOWN, At(d, IDC_CT_DOUBLE_CLICK_TARGET), MK_LBUTTON);
    d.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, At(d, IDC_CT_DOUBLE_CLICK_TARGET));
    d.Send(WM_LBUTTONUP, 0, At(d, IDC_CT_DOUBLE_CLICK_TARGET));
}

void PressAndDragFrom(const Dialog& d, LPARAM from)
{
    ::PostMessageW(d.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(LOWORD(from) + 30, HIWORD(from) + 30));
    d.Send(WM_LBUTTONDOWN, MK_LBUTTON, from);
}

void DragTo(const Dialog& d, int targetId)
{
    PressAndDragFrom(d, At(d, IDC_CT_DRAG_ITEM));
    d.Send(WM_MOUSEMOVE, MK_LBUTTON, At(d, targetId));
    d.Send(WM_LBUTTONUP, 0, At(d, targetId));
}

void Wheel(const Dialog& d, int notches)
{
    for (int i = 0; i < (notches < 0 ? -notches : notches); ++i) {
        d.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, notches < 0 ? -WHEEL_DELTA : WHEEL_DELTA), 0);
    }
}



Action StepAction(int index)
{
    switch (index) {
    case 1: return LeftClick;
    case 2: return RightClick;
    case 3: return MiddleClick;
    case 4: return [](const Dialog& d) { SideButton(d, XBUTTON2); };
    case 5: return [](const Dialog& d) { SideButton(d, XBUTTON1); };
    case 6: return DoubleClickTarget;
    case 7: return [](const Dialog& d) { DragTo(d, IDC_CT_DROP_AREA); };
    case 8: return [](const Dialog& d) { Wheel(d, 8); };
    default: return [](const Dialog& d) { Wheel(d, -9); };
    }
}

std::vector<std::string> Layout(bool gaming, bool middleRequired)
{
    return {"--param", std::string("TestGamingButtons=") + (gaming ? "true" : "false"), "--param",
            std::string("RequireScrollWheelButton=") + (middleRequired ? "true" : "false")};
}

harn5::RunRecord RunClickTest(const std::vector<std::string>& options, const mousetest::Script& script)
{
    return mousetest::RunTestInHost("MouseInteractiveTest", options, script);
}

std::vector<int> StepIndices(bool gaming)
{
    return gaming ? std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9} : std::vector<int>{1, 2, 3, 6, 7, 8, 9};
}

}  // namespace clicktest
