// The classic mouse dialog under Wine: verdicts, pass-button policies and required checks, the
// status panel's pictures and chords, the wheel bar and the tilt arrows. Wine's mouse has three
// buttons and a vertical wheel; other mice are described through the system metrics.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "MouseDlgHarness.h"
#include "Registration.h"
#include "resource.h"

namespace {

using mousetest::Dialog;
using mousetest::ParamsTrue;
using mousetest::RunMouseDialog;
using mousetest::SystemMetricsOverride;
using harn5::TestResult;
namespace params = kstrmouse::params;
namespace texts = kstrmouse::texts;
using Action = std::function<void(const Dialog&)>;

constexpr WPARAM kAway = static_cast<WPARAM>(WHEEL_DELTA) << 16;
constexpr WPARAM kToward = static_cast<WPARAM>(-WHEEL_DELTA & 0xFFFF) << 16;

// A press and its release (each ...UP message follows its ...DOWN).
void Click(const Dialog& d, UINT down)
{
    d.Send(down);
    d.Send(down + 1);
}
void LeftClick(const Dialog& d) { Click(d, WM_LBUTTONDOWN); }
void RightClick(const Dialog& d) { Click(d, WM_RBUTTONDOWN); }
void MiddleClick(const Dialog& d) { Click(d, WM_MBUTTONDOWN); }
void WheelAway(const Dialog& d) { d.Send(WM_MOUSEWHEEL, kAway); }
void DoubleClickFace(const Dialog& d) { ::SendMessageW(d.Item(IDC_NON_SMILEY), WM_LBUTTONDBLCLK, MK_LBUTTON, 0); }

// The one visible mouse picture; 0 when none or several show.
int ShownPicture(const Dialog& d)
{
    int shown = 0;
    for (int id = IDC_WHEEL_LEFT; id <= IDC_NUB_CENTRE; ++id) {
        shown = d.Visible(id) ? (shown == 0 ? id : -1) : shown;
    }
    return shown < 0 ? 0 : shown;
}

TEST(MouseDialogVerdict, EachEndingGivesItsVerdictAndEvents)
{
    struct Case {
        Action end;
        TestResult verdict;
        std::vector<std::string> events;
    };
    const std::vector<Case> cases = {
        {[](const Dialog& d) { d.Click(IDC_PASS); }, TestResult::PASS(), {}},
        {[](const Dialog& d) { d.Click(IDC_FAIL); }, TestResult::FAIL(), {"TestFailed error KstrMouseDlg 425"}},
        {[](const Dialog& d) { d.Click(IDCANCEL); }, TestResult::USERABORTED(), {}},
        {[](const Dialog& d) { d.Send(WM_SYSCOMMAND, SC_CLOSE); }, TestResult::USERABORTED(), {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.verdict.name());
        const std::size_t mark = mousetest::ModuleEventCount();
        EXPECT_EQ(RunMouseDialog([&](Dialog& d) {
                      EXPECT_TRUE(d.Enabled(IDC_PASS));
                      c.end(d);
                  }),
                  c.verdict);
        EXPECT_EQ(mousetest::ModuleEventLinesSince(mark), c.events);
    }
    const SystemMetricsOverride noMouse(SM_MOUSEPRESENT, 0);
    bool shown = false;
    EXPECT_EQ(RunMouseDialog([&](Dialog&) { shown = true; }), TestResult::INTERNALERROR());
    EXPECT_FALSE(shown);
}

TEST(MouseDialogPassPolicy, DisabledUntilStartedWaitsForACompletedAction)
{
    const ParamsTrue started({params::bDisablePassUntilStarted});
    for (const Action& action : std::vector<Action>{LeftClick, RightClick, MiddleClick, WheelAway, DoubleClickFace,
                                                    [](const Dialog& d) { d.Send(WM_MOUSEHWHEEL, kAway); },
                                                    [](const Dialog& d) { d.Send(WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON2)); }}) {
        RunMouseDialog([&action](Dialog& d) {
            // Presses not yet released, and the dialog's own double-click messages, start nothing.
            for (const UINT message : {WM_MBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_XBUTTONDOWN}) {
                d.Send(message, message == WM_XBUTTONDOWN ? MAKEWPARAM(MK_XBUTTON1, XBUTTON1) : 0);
            }
            EXPECT_FALSE(d.Enabled(IDC_PASS));
            action(d);
            EXPECT_TRUE(d.Enabled(IDC_PASS));
        });
    }
}

TEST(MouseDialogPassPolicy, AllButtonsDemandsEveryControlTheSystemReports)
{
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bDisablePassUntilStarted,
                               params::bRequireAllButtons});
    for (const bool tilt : {false, true}) {
        const SystemMetricsOverride metrics(SM_MOUSEHORIZONTALWHEELPRESENT, tilt ? 1 : 0);
        RunMouseDialog([tilt](Dialog& d) {
            for (const Action& step : std::vector<Action>{LeftClick, RightClick, MiddleClick}) {
                step(d);
                EXPECT_FALSE(d.Enabled(IDC_PASS));
            }
            d.Send(WM_MOUSEWHEEL, kToward);
            EXPECT_EQ(d.Enabled(IDC_PASS), !tilt) << tilt;
            // Each tilt direction is a control of its own: one says nothing of the other.
            d.Send(WM_MOUSEHWHEEL, kToward);
            d.Send(WM_MOUSEHWHEEL, kToward);
            EXPECT_EQ(d.Enabled(IDC_PASS), !tilt) << tilt;
            d.Send(WM_MOUSEHWHEEL, kAway);
            EXPECT_TRUE(d.Enabled(IDC_PASS)) << tilt;
        });
    }
}

TEST(MouseDialogPassPolicy, EachRequiredCheckHoldsPassBack)
{
    struct Case {
        harn5::Parameter* require;
        Action unmet;
        Action met;  // none: cannot be met without a drag
    };
    const std::vector<Case> cases = {
        // A held left button counts as used; the wheel makes Pass look again.
        {params::bRequireLeftClick, RightClick, [](const Dialog& d) {
                                                  d.Send(WM_LBUTTONDOWN);
                                                  WheelAway(d);
                                              }},
        {params::bRequireRightClick, LeftClick, RightClick},
        {params::bRequireDoubleClick, LeftClick, DoubleClickFace},
        {params::bRequireDragAndDrop, LeftClick, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.require->name().utf8());
        const ParamsTrue finished({params::bDisablePassUntilFinished, c.require});
        RunMouseDialog([&c](Dialog& d) {
            c.unmet(d);
            EXPECT_FALSE(d.Enabled(IDC_PASS));
            if (c.met) {
                c.met(d);
                EXPECT_TRUE(d.Enabled(IDC_PASS));
            }
        });
    }
}

TEST(MouseDialogPassPolicy, Windows10PECountsDragAndDropAsDoneAndHidesIt)
{
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireDragAndDrop});
    const mousetest::Windows10PEScope pe;
    RunMouseDialog([](Dialog& d) {
        EXPECT_FALSE(d.Enabled(IDC_PASS));
        WheelAway(d);  // elsewhere this brings the drag-and-drop pictures back
        for (const int id : {IDC_GROUP_DRAG_DROP, IDC_DRAG_SOURCE, IDC_DROP_TARGET, IDC_DROP_TARGET_FILLED}) {
            EXPECT_FALSE(d.Visible(id)) << id;
        }
        EXPECT_TRUE(d.Enabled(IDC_PASS));
    });
}

TEST(MouseDialogChord, LeftAndRightTogetherStandInForTheMiddleButton)
{
    struct Case {
        bool finished;
        bool realMiddle;
        std::vector<std::string> events;
    };
    for (const Case& c : {Case{true, false, {"UserMimicMiddleButton warning KstrMouseDlg 410"}},
                          Case{true, true, {}}, Case{false, false, {}}}) {
        SCOPED_TRACE(c.finished + 2 * c.realMiddle);
        const ParamsTrue policy({c.finished ? params::bDisablePassUntilFinished : params::bDisablePassUntilStarted,
                                 params::bRequireAllButtons});
        const std::size_t mark = mousetest::ModuleEventCount();
        EXPECT_EQ(RunMouseDialog([&c](Dialog& d) {
                      EXPECT_EQ(ShownPicture(d), IDC_WHEEL_IDLE);
                      d.Send(WM_RBUTTONDOWN);
                      EXPECT_EQ(ShownPicture(d), IDC_WHEEL_RIGHT);
                      d.Send(WM_LBUTTONDOWN);
                      EXPECT_EQ(ShownPicture(d), IDC_WHEEL_MIDDLE);
                      d.Send(WM_LBUTTONUP);
                      EXPECT_EQ(ShownPicture(d), IDC_WHEEL_IDLE);
                      d.Send(WM_RBUTTONUP);
                      if (c.realMiddle) {
                          MiddleClick(d);
                      }
                      WheelAway(d);
                      // The left button, pressed second, kept its state and is still demanded.
                      EXPECT_EQ(d.Enabled(IDC_PASS), !c.finished);
                      LeftClick(d);
                      d.Click(IDC_PASS);
                  }),
                  TestResult::PASS());
        EXPECT_EQ(mousetest::ModuleEventLinesSince(mark), c.events);
    }
}

TEST(MouseDialogMissingChecks, TheLineUnderTheInstructionsNamesWhatIsLeftUntilPassOpens)
{
    // In whatever language the host has loaded: the line is built from these keys.
    const auto text = [](const harn5::LocalizedString* key) {
        return std::wstring(reinterpret_cast<const wchar_t*>(key->localizedString().getUCS2Buffer()));
    };
    const std::wstring stillToDo = text(texts::MsgMouseStillToDo) + L" ";
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireAllButtons,
                               params::bRequireDoubleClick});
    RunMouseDialog([&](Dialog& d) {
        const std::wstring start = d.Text(IDC_MISSING_CHECKS);
        EXPECT_EQ(start.rfind(stillToDo + text(texts::MsgMouseCheckLeftButton) + L", " +
                                  text(texts::MsgMouseCheckRightButton) + L", " + text(texts::MsgMouseCheckMiddleButton) +
                                  L", " + text(texts::MsgMouseCheckWheel),
                              0),
                  0U);
        EXPECT_NE(start.find(text(texts::MsgMouseCheckDoubleClick)), std::wstring::npos);
        LeftClick(d);
        RightClick(d);
        EXPECT_EQ(d.Text(IDC_MISSING_CHECKS).find(text(texts::MsgMouseCheckLeftButton)), std::wstring::npos);
        MiddleClick(d);
        WheelAway(d);
        DoubleClickFace(d);
        d.Send(WM_LBUTTONUP);
        // Tilt is demanded only where the system reports it.
        const bool tilt = ::GetSystemMetrics(SM_MOUSEHORIZONTALWHEELPRESENT) != 0;
        EXPECT_EQ(d.Text(IDC_MISSING_CHECKS), tilt ? stillToDo + text(texts::MsgMouseCheckTiltLeft) + L", " +
                                                         text(texts::MsgMouseCheckTiltRight)
                                                   : L"");
        EXPECT_EQ(d.Enabled(IDC_PASS), !tilt);
        d.Click(IDCANCEL);
    });
}

TEST(MouseDialogMissingChecks, FailAndCloseReportEachDemandedCheckNeverDone)
{
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireAllButtons,
                               params::bRequireDragAndDrop});
    const bool tilt = ::GetSystemMetrics(SM_MOUSEHORIZONTALWHEELPRESENT) != 0;
    struct Case {
        int button;
        TestResult verdict;
        std::vector<std::string> first;   // what the end itself reports before the checks
    };
    for (const Case& c : {Case{IDC_FAIL, TestResult::FAIL(), {"TestFailed error KstrMouseDlg 425"}},
                          Case{IDCANCEL, TestResult::USERABORTED(), {}}}) {
        const std::size_t mark = mousetest::ModuleEventCount();
        EXPECT_EQ(RunMouseDialog([&c](Dialog& d) {
                      LeftClick(d);
                      WheelAway(d);
                      d.Click(c.button);
                  }),
                  c.verdict);
        std::vector<std::string> expected = c.first;
        for (const char* name : {"RIGHT_MOUSE_CLICK_NOT_RECEIVED", "SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED"}) {
            expected.push_back(std::string(name) + " error KstrMouseDlg 430");
        }
        if (tilt) {
            expected.push_back("MOUSE_TILT_NOT_RECEIVED error KstrMouseDlg 430");
        }
        expected.push_back("MOUSE_DRAG_NOT_RECEIVED error KstrMouseDlg 430");
        EXPECT_EQ(mousetest::ModuleEventLinesSince(mark), expected);
    }
}

TEST(MouseDialogChord, ASecondQuickPressIsAPressSoItsChordIsReportedAsOne)
{
    // Left click, left again within the double-click time, right press, left release: the second
    // left press arrives as a double click, and the middle button it makes is a chord's.
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireAllButtons});
    const std::size_t mark = mousetest::ModuleEventCount();
    EXPECT_EQ(RunMouseDialog([](Dialog& d) {
                  LeftClick(d);
                  d.Send(WM_LBUTTONDBLCLK, MK_LBUTTON);
                  EXPECT_EQ(ShownPicture(d), IDC_WHEEL_LEFT);
                  d.Send(WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON);
                  EXPECT_EQ(ShownPicture(d), IDC_WHEEL_MIDDLE);
                  d.Send(WM_LBUTTONUP, MK_RBUTTON);
                  d.Send(WM_RBUTTONUP);
                  RightClick(d);
                  WheelAway(d);
                  EXPECT_TRUE(d.Enabled(IDC_PASS));
                  d.Click(IDC_PASS);
              }),
              TestResult::PASS());
    EXPECT_EQ(mousetest::ModuleEventLinesSince(mark), std::vector<std::string>{"UserMimicMiddleButton warning KstrMouseDlg 410"});
}

TEST(MouseDialogChord, ALeftPressReleasedOutsideTheDialogMakesNoLaterChord)
{
    // A press on the drag source takes no capture: its release outside the dialog never comes.
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireRightClick});
    const std::size_t mark = mousetest::ModuleEventCount();
    EXPECT_EQ(RunMouseDialog([](Dialog& d) {
                  POINT source = d.Centre(IDC_DRAG_SOURCE);
                  ::ScreenToClient(d.hwnd(), &source);
                  d.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(source.x, source.y));
                  d.Send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));   // back, with no button held
                  EXPECT_EQ(ShownPicture(d), IDC_WHEEL_IDLE);
                  d.Send(WM_RBUTTONDOWN, MK_RBUTTON);
                  EXPECT_EQ(ShownPicture(d), IDC_WHEEL_RIGHT);   // the right button, not a chord
                  d.Send(WM_RBUTTONUP);
                  EXPECT_TRUE(d.Enabled(IDC_PASS));
                  d.Click(IDC_PASS);
              }),
              TestResult::PASS());
    EXPECT_TRUE(mousetest::ModuleEventLinesSince(mark).empty());
}

TEST(MouseDialogChord, TwoButtonMouseIgnoresTheSecondButton)
{
    const SystemMetricsOverride noWheel(SM_MOUSEWHEELPRESENT, 0);
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireAllButtons});
    const std::size_t mark = mousetest::ModuleEventCount();
    EXPECT_EQ(RunMouseDialog([](Dialog& d) {
                  EXPECT_EQ(ShownPicture(d), IDC_MOUSE2_IDLE);
                  d.Send(WM_RBUTTONDOWN);
                  d.Send(WM_LBUTTONDOWN);
                  EXPECT_TRUE(d.Visible(IDC_MOUSE2_RIGHT));  // over the idle picture, which stays
                  EXPECT_FALSE(d.Visible(IDC_MOUSE2_LEFT));
                  d.Send(WM_LBUTTONUP);
                  d.Send(WM_RBUTTONUP);
                  EXPECT_EQ(ShownPicture(d), IDC_MOUSE2_IDLE);
                  EXPECT_FALSE(d.Enabled(IDC_PASS));  // the left button never counted
                  LeftClick(d);
                  EXPECT_TRUE(d.Enabled(IDC_PASS));  // no middle button or wheel to demand
                  d.Click(IDC_PASS);
              }),
              TestResult::PASS());
    EXPECT_TRUE(mousetest::ModuleEventLinesSince(mark).empty());
}

TEST(MouseDialogStatus, SwappedButtonsShowThePhysicalButtonAndPositionFollowsTheCursor)
{
    const SystemMetricsOverride swapped(SM_SWAPBUTTON, 1);
    const ParamsTrue finished({params::bDisablePassUntilFinished, params::bRequireRightClick});
    RunMouseDialog([](Dialog& d) {
        d.Send(WM_LBUTTONDOWN);
        EXPECT_EQ(ShownPicture(d), IDC_WHEEL_RIGHT);
        d.Send(WM_LBUTTONUP);
        EXPECT_EQ(ShownPicture(d), IDC_WHEEL_IDLE);
        EXPECT_TRUE(d.Enabled(IDC_PASS));
        ::SetCursorPos(123, 234);
        POINT cursor{};
        ::GetCursorPos(&cursor);
        EXPECT_TRUE(mousetest::PumpUntil([&] {
            return d.Text(IDC_POSITION_X) == std::to_wstring(cursor.x) && d.Text(IDC_POSITION_Y) == std::to_wstring(cursor.y);
        }));
    });
}

TEST(MouseDialogWheel, BarClimbsAndFallsInThirteensWithArrowAndLabel)
{
    RunMouseDialog([](Dialog& d) {
        const HWND label = ::GetDlgItem(d.hwnd(), IDC_WHEEL_VALUE);
        ASSERT_NE(label, nullptr);
        EXPECT_FALSE(::IsWindowVisible(label) || d.Visible(IDC_WHEEL_BAR) || d.Visible(IDC_WHEEL_SCALE_TOP) ||
                     d.Visible(IDC_WHEEL_UP) || d.Visible(IDC_WHEEL_DOWN));
        std::vector<int> positions;
        for (int i = 0; i < 17; ++i) {
            d.Send(WM_MOUSEWHEEL, i < 9 ? kAway : i == 9 ? 0 : kToward);  // a delta of 0 counts as toward
            const auto position = static_cast<int>(::SendMessageW(d.Item(IDC_WHEEL_BAR), PBM_GETPOS, 0, 0));
            wchar_t text[16] = {};
            ::GetWindowTextW(label, text, 16);
            EXPECT_EQ(std::to_wstring(position), text);
            positions.push_back(position);
            EXPECT_EQ(d.Visible(IDC_WHEEL_UP), i < 9);
            EXPECT_EQ(d.Visible(IDC_WHEEL_DOWN), i >= 9);
        }
        EXPECT_EQ(positions, (std::vector<int>{13, 26, 39, 52, 65, 78, 91, 100, 100, 87, 74, 61, 48, 35, 22, 9, 0}));
        EXPECT_TRUE(::IsWindowVisible(label) && d.Visible(IDC_WHEEL_BAR) && d.Visible(IDC_WHEEL_SCALE_TOP) &&
                    d.Visible(IDC_WHEEL_SCALE_BOTTOM));
    });
}

TEST(MouseDialogWheel, TiltArrowShowsUntilTheWheelTimerExpires)
{
    RunMouseDialog([](Dialog& d) {
        WheelAway(d);
        for (const auto& [delta, shown, other] : {std::tuple{kToward, IDC_TILT_LEFT, IDC_TILT_RIGHT},
                                                  std::tuple{kAway, IDC_TILT_RIGHT, IDC_TILT_LEFT}}) {
            d.Send(WM_MOUSEHWHEEL, delta);
            EXPECT_TRUE(d.Visible(shown));
            EXPECT_FALSE(d.Visible(other));
            EXPECT_TRUE(mousetest::PumpUntil([&] { return !d.Visible(shown); }));
            EXPECT_TRUE(d.Visible(IDC_WHEEL_UP) && d.Visible(IDC_WHEEL_BAR));  // these stay
        }
    });
}

}  // namespace
