// The double-click faces and the drag-and-drop pair: presses forwarded by the faces, the drop
// target's rules called as OLE calls them, and a real OLE drag made of injected mouse input.
#include <gtest/gtest.h>

#include <afxole.h>

#include "COleDropWndTarget.h"
#include "MouseDlgHarness.h"
#include "Registration.h"
#include "resource.h"

namespace {

using mousetest::Dialog;
using mousetest::ParamsTrue;
using mousetest::PumpUntil;
using mousetest::RunMouseDialog;
namespace params = kstrmouse::params;

TEST(MouseDialogFaces, PressesOnAFaceCountAndOnlyADoubleClickSwapsTheFaces)
{
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireDoubleClick});
    RunMouseDialog([](Dialog& d) {
        for (const auto& [down, held] : {std::pair{WM_LBUTTONDOWN, IDC_WHEEL_LEFT}, std::pair{WM_RBUTTONDOWN, IDC_WHEEL_RIGHT},
                                         std::pair{WM_LBUTTONDOWN, IDC_WHEEL_LEFT}}) {
            ::SendMessageW(d.Item(IDC_NON_SMILEY), down, 0, MAKELPARAM(4, 4));
            EXPECT_TRUE(PumpUntil([&] { return d.Visible(held); })) << down;
            ::SendMessageW(d.Item(IDC_NON_SMILEY), down + 1, 0, MAKELPARAM(4, 4));
            EXPECT_TRUE(PumpUntil([&] { return d.Visible(IDC_WHEEL_IDLE); })) << down;
        }
        EXPECT_TRUE(d.Visible(IDC_NON_SMILEY) && !d.Visible(IDC_SMILEY));
        EXPECT_FALSE(d.Enabled(IDC_PASS));
        for (const auto& [clicked, shown] : {std::pair{IDC_NON_SMILEY, IDC_SMILEY}, std::pair{IDC_SMILEY, IDC_NON_SMILEY}}) {
            ::SendMessageW(d.Item(clicked), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(4, 4));
            EXPECT_TRUE(d.Visible(shown) && !d.Visible(clicked));
            EXPECT_TRUE(d.Visible(IDC_WHEEL_LEFT));  // the second press counts in the status panel
            EXPECT_EQ(::GetCapture(), d.hwnd());  // the release of the second press comes to the dialog
            d.Send(WM_LBUTTONUP);
        }
        EXPECT_TRUE(d.Enabled(IDC_PASS));
    });
}

TEST(MouseDialogDropTarget, AcceptsOnlyAMoveOntoTheEmptyTargetAfterEntering)
{
    COleDropWndTarget rules;
    struct Over {
        CPoint point;
        DWORD keys;
        DROPEFFECT effect;
    };
    for (const Over& o : {Over{{36, 33}, 0, DROPEFFECT_MOVE}, Over{{35, 100}, 0, DROPEFFECT_NONE},
                          Over{{100, 32}, 0, DROPEFFECT_NONE}, Over{{100, 100}, MK_CONTROL, DROPEFFECT_NONE}}) {
        EXPECT_EQ(rules.OnDragOver(nullptr, nullptr, o.keys, o.point), o.effect) << o.point.x << "," << o.point.y;
    }
    RunMouseDialog([](Dialog& d) {
        CWnd* pDialog = CWnd::FromHandle(d.hwnd());
        POINT onTarget = d.Centre(IDC_DROP_TARGET);
        POINT elsewhere = d.Centre(IDC_NON_SMILEY);
        ::ScreenToClient(d.hwnd(), &onTarget);
        ::ScreenToClient(d.hwnd(), &elsewhere);
        COleDataSource source;  // what the dialog's own drag offers
        source.CacheGlobalData(CF_BITMAP, ::GlobalAlloc(GMEM_ZEROINIT, 1024));
        COleDataObject data;
        data.Attach(source.GetDataObject(), TRUE);
        COleDropWndTarget target;

        EXPECT_FALSE(target.OnDrop(pDialog, &data, DROPEFFECT_MOVE, onTarget));  // nothing entered yet
        EXPECT_EQ(target.OnDragEnter(pDialog, &data, 0, onTarget), DROPEFFECT_MOVE);
        EXPECT_FALSE(d.Visible(IDC_DRAG_SOURCE));
        EXPECT_FALSE(target.OnDrop(pDialog, &data, DROPEFFECT_COPY, onTarget));
        EXPECT_FALSE(d.Visible(IDC_DRAG_SOURCE));  // a refusal on the target leaves the source hidden
        EXPECT_FALSE(target.OnDrop(pDialog, &data, DROPEFFECT_MOVE, elsewhere));
        EXPECT_TRUE(d.Visible(IDC_DRAG_SOURCE));
        EXPECT_FALSE(target.m_bDropped);

        EXPECT_TRUE(target.OnDrop(pDialog, &data, DROPEFFECT_MOVE, onTarget));
        EXPECT_TRUE(target.m_bDropped);
        EXPECT_TRUE(d.Visible(IDC_DROP_TARGET_FILLED) && !d.Visible(IDC_DROP_TARGET));
        // The filled target shows for a second; then the empty target and the source return.
        EXPECT_TRUE(PumpUntil([&] { return d.Visible(IDC_DROP_TARGET) && d.Visible(IDC_DRAG_SOURCE); }));
        EXPECT_FALSE(d.Visible(IDC_DROP_TARGET_FILLED));

        // A drop within 100 ms of a wheel notch empties its target all the same.
        d.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        EXPECT_EQ(target.OnDragEnter(pDialog, &data, 0, onTarget), DROPEFFECT_MOVE);
        EXPECT_TRUE(target.OnDrop(pDialog, &data, DROPEFFECT_MOVE, onTarget));
        EXPECT_TRUE(d.Visible(IDC_DROP_TARGET_FILLED));
        EXPECT_TRUE(PumpUntil([&] { return d.Visible(IDC_DROP_TARGET) && d.Visible(IDC_DRAG_SOURCE); }));
        EXPECT_FALSE(d.Visible(IDC_DROP_TARGET_FILLED));
    });
}

// Absolute mouse input, in the 0..65535 desktop coordinates of SendInput.
INPUT MouseInput(DWORD flags, POINT at)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = MulDiv(at.x, 65535, ::GetSystemMetrics(SM_CXSCREEN) - 1);
    input.mi.dy = MulDiv(at.y, 65535, ::GetSystemMetrics(SM_CYSCREEN) - 1);
    input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    return input;
}

// Injects one input per timer tick, so that each step meets whichever loop runs then: the
// dialog's, the wait for the drag to begin, or the system's drag loop.
std::vector<INPUT> s_inputs;
std::size_t s_nextInput = 0;

void CALLBACK InjectNextInput(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_nextInput < s_inputs.size()) {
        ::SendInput(1, &s_inputs[s_nextInput++], sizeof(INPUT));
    }
}

TEST(MouseDialogDragAndDrop, RealDragFromSourceOntoTargetDoesTheCheck)
{
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireDragAndDrop});
    RunMouseDialog([](Dialog& d) {
        const POINT from = d.Centre(IDC_DRAG_SOURCE);
        const POINT to = d.Centre(IDC_DROP_TARGET);
        s_inputs = {MouseInput(0, from), MouseInput(MOUSEEVENTF_LEFTDOWN, from), MouseInput(0, {from.x + 1, from.y})};
        for (int i = 1; i <= 10; ++i) {
            s_inputs.push_back(MouseInput(0, {from.x + (to.x - from.x) * i / 10, from.y + (to.y - from.y) * i / 10}));
        }
        s_inputs.push_back(MouseInput(MOUSEEVENTF_LEFTUP, to));
        s_nextInput = 0;
        const UINT_PTR player = ::SetTimer(nullptr, 0, 30, &InjectNextInput);
        EXPECT_TRUE(PumpUntil([&] { return d.Enabled(IDC_PASS); }, 5000));
        ::KillTimer(nullptr, player);
        EXPECT_EQ(s_nextInput, s_inputs.size());
        EXPECT_TRUE(d.Visible(IDC_DROP_TARGET_FILLED));
    });
}

}  // namespace
