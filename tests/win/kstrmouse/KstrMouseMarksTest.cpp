// The classic dialog's marks of each tilt direction and side button, and the side buttons as a
// demanded check, under Wine with real messages. Wine's mouse counts three buttons and no tilt;
// other mice are described through the system metrics.
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "MouseDlgHarness.h"
#include "Registration.h"
#include "resource.h"

namespace {

using harn5::TestResult;
using mousetest::Dialog;
using mousetest::ParamsTrue;
using mousetest::RunMouseDialog;
using mousetest::SystemMetricsOverride;
namespace params = kstrmouse::params;
namespace texts = kstrmouse::texts;

constexpr WPARAM kAway = static_cast<WPARAM>(WHEEL_DELTA) << 16;
constexpr WPARAM kToward = static_cast<WPARAM>(-WHEEL_DELTA & 0xFFFF) << 16;

std::wstring TextOf(const harn5::LocalizedString* key)
{
    return reinterpret_cast<const wchar_t*>(key->localizedString().getUCS2Buffer());
}

void SideDown(const Dialog& d, WORD button)
{
    d.Send(WM_XBUTTONDOWN, MAKEWPARAM(button == XBUTTON1 ? MK_XBUTTON1 : MK_XBUTTON2, button));
}
void SideUp(const Dialog& d, WORD button) { d.Send(WM_XBUTTONUP, MAKEWPARAM(0, button)); }

TEST(MouseDialogMarks, EachTiltDirectionStaysMarkedAfterItsArrowHasGone)
{
    const SystemMetricsOverride tilt(SM_MOUSEHORIZONTALWHEELPRESENT, 1);
    RunMouseDialog([](Dialog& d) {
        const std::wstring left = TextOf(texts::MsgMouseCheckTiltLeft);
        const std::wstring right = TextOf(texts::MsgMouseCheckTiltRight);
        EXPECT_TRUE(d.Visible(IDC_CONTROL_MARKS));
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), left + L", " + right);
        d.Send(WM_MOUSEHWHEEL, kToward);
        EXPECT_TRUE(mousetest::PumpUntil([&] { return !d.Visible(IDC_TILT_LEFT); }));
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), left + L" (done), " + right);
        d.Send(WM_MOUSEHWHEEL, kAway);
        EXPECT_TRUE(mousetest::PumpUntil([&] { return !d.Visible(IDC_TILT_RIGHT); }));
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), left + L" (done), " + right + L" (done)");
    });
}

TEST(MouseDialogMarks, SideButtonsShowWhenCountedOrUsedAndAreMarkedWhileHeldAndOnceReleased)
{
    const std::wstring back = TextOf(texts::MsgMouseCheckBackButton);
    const std::wstring forward = TextOf(texts::MsgMouseCheckForwardButton);
    RunMouseDialog([&](Dialog& d) {
        // Three counted buttons: nothing to mark until a side button is used anyway.
        EXPECT_FALSE(d.Visible(IDC_CONTROL_MARKS));
        SideDown(d, XBUTTON2);
        EXPECT_TRUE(d.Visible(IDC_CONTROL_MARKS));
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), forward + L" (now)");
        SideUp(d, XBUTTON2);
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), forward + L" (done)");
    });
    const SystemMetricsOverride fiveButtons(SM_CMOUSEBUTTONS, 5);
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireAllButtons});
    RunMouseDialog([&](Dialog& d) {
        EXPECT_EQ(d.Text(IDC_CONTROL_MARKS), back + L", " + forward);
        // Every control but the side buttons: those are demanded only by their own parameter.
        for (const UINT down : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN}) {
            d.Send(down);
            d.Send(down + 1);
        }
        d.Send(WM_MOUSEWHEEL, kAway);
        EXPECT_TRUE(d.Enabled(IDC_PASS));
    });
}

TEST(MouseDialogMarks, DemandedSideButtonsHoldPassBackAndAreReportedWhenNeverPressed)
{
    const ParamsTrue demanded({params::bDisablePassUntilFinished, params::bRequireSideButtons});
    const std::wstring stillToDo = TextOf(texts::MsgMouseStillToDo) + L" ";
    // Demanded by name, they count even where the system counts three buttons.
    EXPECT_EQ(RunMouseDialog([&](Dialog& d) {
                  EXPECT_TRUE(d.Visible(IDC_CONTROL_MARKS));
                  EXPECT_EQ(d.Text(IDC_MISSING_CHECKS), stillToDo + TextOf(texts::MsgMouseCheckBackButton) + L", " +
                                                            TextOf(texts::MsgMouseCheckForwardButton));
                  SideDown(d, XBUTTON1);
                  SideUp(d, XBUTTON1);
                  EXPECT_EQ(d.Text(IDC_MISSING_CHECKS), stillToDo + TextOf(texts::MsgMouseCheckForwardButton));
                  EXPECT_FALSE(d.Enabled(IDC_PASS));
                  SideDown(d, XBUTTON2);
                  SideUp(d, XBUTTON2);
                  EXPECT_TRUE(d.Enabled(IDC_PASS));
                  EXPECT_EQ(d.Text(IDC_MISSING_CHECKS), L"");
                  d.Click(IDC_PASS);
              }),
              TestResult::PASS());

    const std::size_t mark = mousetest::ModuleEventCount();
    EXPECT_EQ(RunMouseDialog([](Dialog& d) {
                  SideDown(d, XBUTTON2);
                  SideUp(d, XBUTTON2);
                  d.Click(IDC_FAIL);
              }),
              TestResult::FAIL());
    EXPECT_EQ(mousetest::ModuleEventLinesSince(mark),
              (std::vector<std::string>{"TestFailed error KstrMouseDlg 425",
                                        "FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED error KstrMouseDlg 430"}));
}

TEST(MouseDialogMarks, BothTiltDirectionsMissingAreOneEvent)
{
    const SystemMetricsOverride tilt(SM_MOUSEHORIZONTALWHEELPRESENT, 1);
    const ParamsTrue demanded({params::bDisablePassUntilFinished, params::bRequireAllButtons});
    for (const bool oneTilted : {false, true}) {
        const std::size_t mark = mousetest::ModuleEventCount();
        RunMouseDialog([oneTilted](Dialog& d) {
            if (oneTilted) {
                d.Send(WM_MOUSEHWHEEL, kAway);
            }
            d.Click(IDCANCEL);
        });
        const std::vector<std::string> events = mousetest::ModuleEventLinesSince(mark);
        EXPECT_EQ(std::count(events.begin(), events.end(), "MOUSE_TILT_NOT_RECEIVED error KstrMouseDlg 430"), 1)
            << oneTilted;
    }
}

}  // namespace
