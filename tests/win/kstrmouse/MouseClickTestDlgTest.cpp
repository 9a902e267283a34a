// The click test under Wine, run through the host with English texts: both layouts walked to the
// end, Fail at every step, Skip, the required middle button, the ways to cancel, the drag and the
// wheel. The blocking pauses are recorded instead of waited for, through the executable's import
// of Sleep.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "ClickTestDriver.h"
#include "MouseClickTestDlg.h"
#include "MouseDlgHarness.h"
#include "PauseRecorder.h"
#include "Registration.h"
#include "resource.h"

namespace {

using harn5::TestResult;
using mousetest::Dialog;
using namespace clicktest;
namespace texts = kstrmouse::texts;

std::string StepText()
{
    return texts::MOUSE_INTERACTIVE_TEST_INDEX->localizedString().utf8();
}

std::string Instruction()
{
    const harn5::LocalizedString* key = CMouseClickTestDlg::currentInstruction();
    return key != nullptr ? key->key().utf8() : "";
}

bool Shown(const Dialog& d, int id)
{
    return (::GetWindowLongW(d.Item(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

int WheelPosition(const Dialog& d)
{
    return static_cast<int>(::SendMessageW(d.Item(IDC_CT_WHEEL_BAR), PBM_GETPOS, 0, 0));
}

// The mouse pictures that show now.
std::vector<int> ShownMousePictures(const Dialog& d)
{
    std::vector<int> shown;
    for (int id : {IDC_CT_MOUSE_START, IDC_CT_LEFT_PRESSED, IDC_CT_LEFT_SUCCESS, IDC_CT_RIGHT_PRESSED,
                   IDC_CT_RIGHT_SUCCESS, IDC_CT_MIDDLE_PRESSED, IDC_CT_MIDDLE_SUCCESS, IDC_CT_MIDDLE_SKIPPED,
                   IDC_CT_SIDE1_PRESSED, IDC_CT_SIDE1_PRESSED_SKIPPED, IDC_CT_SIDE1_SUCCESS,
                   IDC_CT_SIDE1_SUCCESS_SKIPPED, IDC_CT_SIDE2_PRESSED, IDC_CT_SIDE2_PRESSED_SKIPPED,
                   IDC_CT_SIDE2_SUCCESS, IDC_CT_SIDE2_SUCCESS_SKIPPED}) {
        if (d.Visible(id)) {
            shown.push_back(id);
        }
    }
    return shown;
}

std::vector<std::string> Events(const harn5::RunRecord& run)
{
    std::vector<std::string> events;
    for (const harn5::EventRecord& e : run.events) {
        events.push_back(e.name + " " + e.severity + " " + e.sourceFile + " " + std::to_string(e.line));
    }
    return events;
}

TEST(ClickTestWalk, EachLayoutNumbersItsStepsAndPassesWithoutEvents)
{
    struct Case {
        bool gaming;
        std::vector<int> indices;
        std::vector<std::string> pauses;
    };
    const std::vector<Case> cases = {
        {false, StepIndices(false),
         {"Step 3 of 7 1000", "Step 4 of 7 1000", "Step 5 of 7 1000", "Step 6 of 7 1000", "Step 7 of 7 1000"}},
        {true, StepIndices(true),
         {"Step 5 of 9 1000", "Step 6 of 9 1000", "Step 7 of 9 1000", "Step 8 of 9 1000", "Step 9 of 9 1000"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.gaming ? "gaming" : "default");
        const PauseRecorder pauses;
        std::vector<std::string> steps;
        const harn5::RunRecord run = RunClickTest(Layout(c.gaming), [&](Dialog& d) {
            for (const int index : c.indices) {
                steps.push_back(StepText());
                EXPECT_TRUE(d.Enabled(IDCANCEL) && d.Enabled(IDC_CT_FAIL)) << "buttons back at each step";
                EXPECT_LE(ShownMousePictures(d).size(), 1u) << "one mouse picture at a time";
                StepAction(index)(d);
            }
        });
        const int count = static_cast<int>(c.indices.size());
        std::vector<std::string> expected;
        for (int n = 1; n <= count; ++n) {
            expected.push_back("Step " + std::to_string(n) + " of " + std::to_string(count));
        }
        EXPECT_EQ(steps, expected);
        EXPECT_EQ(pauses.pauses(), c.pauses);
        ASSERT_TRUE(run.verdict.has_value());
        EXPECT_EQ(*run.verdict, TestResult::PASS());
        EXPECT_TRUE(run.events.empty());
    }
}

TEST(ClickTestPictures, PressesAndReleasesSwapTheMousePicture)
{
    const PauseRecorder pauses;
    RunClickTest(Layout(true), [](Dialog& d) {
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_MOUSE_START});
        d.Send(WM_LBUTTONDOWN, MK_LBUTTON, Plain(d));
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_LEFT_PRESSED});
        d.Send(WM_LBUTTONUP, 0, Plain(d));
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_LEFT_SUCCESS});
        d.Send(WM_RBUTTONDOWN, MK_RBUTTON, Plain(d));
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_RIGHT_PRESSED});
        d.Send(WM_RBUTTONUP, 0, Plain(d));
        MiddleClick(d);
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_MIDDLE_SUCCESS});
        // Side button 1 is XBUTTON2: the other one changes nothing at step 4, and vice versa.
        SideButton(d, XBUTTON1);
        EXPECT_EQ(StepText(), "Step 4 of 9");
        d.Send(WM_XBUTTONDOWN, MAKEWPARAM(MK_XBUTTON2, XBUTTON2), Plain(d));
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_SIDE1_PRESSED});
        d.Send(WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON2), Plain(d));
        EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_SIDE1_SUCCESS});
        SideButton(d, XBUTTON2);
        EXPECT_EQ(StepText(), "Step 5 of 9");
        SideButton(d, XBUTTON1);
        EXPECT_TRUE(ShownMousePictures(d).empty()) << "the double-click target takes the mouse area";
        EXPECT_TRUE(d.Visible(IDC_CT_DOUBLE_CLICK_TARGET));
        EXPECT_FALSE(d.Visible(IDC_CT_DOUBLE_CLICK_HOVER));
        // A double click outside the target is not the step's.
        d.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, Plain(d));
        EXPECT_EQ(StepText(), "Step 6 of 9");
        DoubleClickTarget(d);
        EXPECT_FALSE(d.Visible(IDC_CT_DOUBLE_CLICK_SUCCESS)) << "gone when the drag step starts";
        EXPECT_TRUE(d.Visible(IDC_CT_DRAG_ITEM) && d.Visible(IDC_CT_DROP_AREA));
        EXPECT_FALSE(d.Visible(IDC_CT_DROP_SUCCESS));
    });
}

TEST(ClickTestFail, EachStepRaisesOnlyItsOwnEvent)
{
    struct Case {
        bool gaming;
        int index;
        std::string event;
    };
    const std::vector<Case> cases = {
        {true, 1, "LEFT_MOUSE_CLICK_NOT_RECEIVED error MouseClickTestDlg 800"},
        {true, 2, "RIGHT_MOUSE_CLICK_NOT_RECEIVED error MouseClickTestDlg 802"},
        {true, 3, "SCROLL_WHEEL_MOUSE_CLICK_NOT_RECEIVED error MouseClickTestDlg 804"},
        {true, 4, "FIRST_SIDE_MOUSE_BUTTON_NOT_RECEIVED error MouseClickTestDlg 806"},
        {true, 5, "SECOND_SIDE_MOUSE_BUTTON_NOT_RECEIVED error MouseClickTestDlg 808"},
        {true, 6, "MOUSE_DOUBLE_CLICK_NOT_RECEIVED error MouseClickTestDlg 810"},
        {true, 7, "MOUSE_DRAG_NOT_RECEIVED error MouseClickTestDlg 816"},
        {true, 8, "SCROLL_WHEEL_UP_NOT_RECEIVED error MouseClickTestDlg 812"},
        {true, 9, "SCROLL_WHEEL_DOWN_NOT_RECEIVED error MouseClickTestDlg 814"},
        {false, 8, "SCROLL_WHEEL_UP_NOT_RECEIVED error MouseClickTestDlg 812"},
    };
    const PauseRecorder pauses;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.event);
        const harn5::RunRecord run = RunClickTest(Layout(c.gaming), [&c](Dialog& d) {
            for (int index = 1; index < c.index; ++index) {
                if (c.gaming || index < 4 || index > 5) {
                    StepAction(index)(d);
                }
            }
            d.Click(IDC_CT_FAIL);
        });
        EXPECT_EQ(Events(run), std::vector<std::string>{c.event});
        ASSERT_TRUE(run.verdict.has_value());
        EXPECT_EQ(*run.verdict, TestResult::FAIL());
    }
}

TEST(ClickTestSkip, SkippedMiddleButtonEndsTheRunAfterTheDrop)
{
    struct Case {
        bool gaming;
        std::vector<std::string> steps;
    };
    const std::vector<Case> cases = {
        {false, {"Step 3 of 7", "Step 4 of 7", "Step 5 of 7"}},
        {true, {"Step 3 of 9", "Step 4 of 9", "Step 5 of 9", "Step 6 of 9", "Step 7 of 9"}},
    };
    const PauseRecorder pauses;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.gaming ? "gaming" : "default");
        std::vector<std::string> steps;
        const harn5::RunRecord run = RunClickTest(Layout(c.gaming), [&](Dialog& d) {
            LeftClick(d);
            RightClick(d);
            steps.push_back(StepText());
            EXPECT_TRUE(d.Visible(IDC_CT_SKIP) && d.Enabled(IDC_CT_SKIP));
            d.Click(IDC_CT_SKIP);
            EXPECT_FALSE(d.Visible(IDC_CT_SKIP));
            if (c.gaming) {
                steps.push_back(StepText());
                EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_MIDDLE_SKIPPED});
                d.Send(WM_XBUTTONDOWN, MAKEWPARAM(MK_XBUTTON2, XBUTTON2), Plain(d));
                EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_SIDE1_PRESSED_SKIPPED});
                d.Send(WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON2), Plain(d));
                EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_SIDE1_SUCCESS_SKIPPED});
                steps.push_back(StepText());
                d.Send(WM_XBUTTONDOWN, MAKEWPARAM(MK_XBUTTON1, XBUTTON1), Plain(d));
                EXPECT_EQ(ShownMousePictures(d), std::vector<int>{IDC_CT_SIDE2_PRESSED_SKIPPED});
                d.Send(WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON1), Plain(d));
            }
            steps.push_back(StepText());
            DoubleClickTarget(d);
            steps.push_back(StepText());
            DragTo(d, IDC_CT_DROP_AREA);
            EXPECT_FALSE(d.Visible(IDC_CT_WHEEL_BAR)) << "the wheel steps never come";
        });
        EXPECT_EQ(steps, c.steps);
        EXPECT_EQ(Events(run),
                  std::vector<std::string>{"SCROLL_WHEEL_TESTING_SKIPPED informative MouseClickTestDlg 834"});
        ASSERT_TRUE(run.verdict.has_value());
        EXPECT_EQ(*run.verdict, TestResult::PASS());
    }
}

TEST(ClickTestSkip, RequiredMiddleButtonOffersNoSkip)
{
    for (const bool required : {false, true}) {
        RunClickTest(Layout(false, required), [required](Dialog& d) {
            LeftClick(d);
            EXPECT_FALSE(d.Visible(IDC_CT_SKIP)) << "only the middle-button step offers it";
            RightClick(d);
            EXPECT_EQ(d.Visible(IDC_CT_SKIP), !required);
            EXPECT_EQ(Instruction(), required ? "MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION_TESTING_REQUIRED"
                                              : "MOUSE_MIDDLE_CLICK_TEST_INSTRUCTION");
        });
    }
}

TEST(ClickTestEnd, CancelPathsAbortWithoutEvents)
{
    struct Case {
        const char* name;
        bool firstStepDone;
        Action end;
    };
    const std::vector<Case> cases = {
        {"Cancel button", false, [](const Dialog& d) { d.Click(IDCANCEL); }},
        // The key as the modal loop hands it over.
        {"Escape", true,
         [](const Dialog& d) {
             MSG key{d.hwnd(), WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
             ::IsDialogMessageW(d.hwnd(), &key);
         }},
        {"close request", true, [](const Dialog& d) { d.Send(WM_SYSCOMMAND, SC_CLOSE); }},
        // The picture lies in the top strip: its release is taken by the move detection.
        {"close picture", false,
         [](const Dialog& d) {
             ::PostMessageW(d.hwnd(), WM_LBUTTONUP, 0, At(d, IDC_CT_CLOSE));
             d.Send(WM_LBUTTONDOWN, MK_LBUTTON, At(d, IDC_CT_CLOSE));
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        bool closed = false;
        const harn5::RunRecord run = RunClickTest(Layout(false), [&](Dialog& d) {
            if (c.firstStepDone) {
                LeftClick(d);
            }
            c.end(d);
            closed = mousetest::PumpUntil([&d] { return !::IsWindowVisible(d.hwnd()); });
        });
        EXPECT_TRUE(closed);
        EXPECT_TRUE(run.events.empty());
        ASSERT_TRUE(run.verdict.has_value());
        EXPECT_EQ(*run.verdict, TestResult::USERABORTED());
    }
}

TEST(ClickTestEnd, EnterAndTheOkCommandEndNothingAndOnlyTheLastStepPasses)
{
    const PauseRecorder pauses;
    const harn5::RunRecord run = RunClickTest(Layout(false), [](Dialog& d) {
        d.Send(WM_COMMAND, IDOK);
        LeftClick(d);
        // The dialog holds the focus after a step in a real run: Enter there is the dialog
        // manager's IDOK.
        ::SetFocus(d.hwnd());
        MSG enter{d.hwnd(), WM_KEYDOWN, VK_RETURN, 0, 0, {}};
        ::IsDialogMessageW(d.hwnd(), &enter);
        d.Send(WM_COMMAND, IDOK);
        EXPECT_FALSE(mousetest::PumpUntil([&d] { return !::IsWindowVisible(d.hwnd()); }, 300));
        EXPECT_EQ(StepText(), "Step 2 of 7");
        for (const int index : {2, 3, 6, 7, 8}) {
            StepAction(index)(d);
            d.Send(WM_COMMAND, IDOK);
            EXPECT_TRUE(::IsWindowVisible(d.hwnd())) << "after step " << index;
        }
        StepAction(9)(d);
    });
    EXPECT_TRUE(run.events.empty());
    ASSERT_TRUE(run.verdict.has_value());
    EXPECT_EQ(*run.verdict, TestResult::PASS());
    // Closed from outside before its last step, it never passes.
    const harn5::RunRecord stopped = RunClickTest(Layout(false), [](Dialog& d) {
        LeftClick(d);
        ::EndDialog(d.hwnd(), IDOK);
    });
    ASSERT_TRUE(stopped.verdict.has_value());
    EXPECT_EQ(*stopped.verdict, TestResult::CANNOTRUN());
}

TEST(ClickTestPause, InputDuringAPauseBelongsToNoStep)
{
    HWND dialog = nullptr;
    // A click on Fail and the next step's double click, both while the success picture shows.
    const PauseRecorder pauses([&dialog] {
        const Dialog d(dialog);
        const HWND fail = d.Item(IDC_CT_FAIL);
        ::PostMessageW(fail, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        ::PostMessageW(fail, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        ::PostMessageW(dialog, WM_LBUTTONDBLCLK, MK_LBUTTON, At(d, IDC_CT_DOUBLE_CLICK_TARGET));
        ::PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
    });
    const harn5::RunRecord run = RunClickTest(Layout(false), [&dialog](Dialog& d) {
        dialog = d.hwnd();
        for (const int index : {1, 2, 3}) {
            StepAction(index)(d);
        }
        mousetest::PumpUntil([] { return false; }, 300);
        EXPECT_TRUE(::IsWindowVisible(d.hwnd()));
        EXPECT_EQ(StepText(), "Step 4 of 7") << "the double click was not this step's";
        EXPECT_TRUE(d.Visible(IDC_CT_DOUBLE_CLICK_TARGET));
        EXPECT_TRUE(d.Enabled(IDC_CT_FAIL));
    });
    EXPECT_EQ(pauses.pauses(), std::vector<std::string>{"Step 3 of 7 1000"});
    EXPECT_TRUE(run.events.empty()) << "no Fail";
    ASSERT_TRUE(run.verdict.has_value());
    EXPECT_EQ(*run.verdict, TestResult::USERABORTED()) << "cancelled by the harness, not by the Escape";
}

// Walks a default-layout run to the drag step.
void ToDragStep(const Dialog& d)
{
    for (const int index : {1, 2, 3, 6}) {
        StepAction(index)(d);
    }
    ASSERT_EQ(StepText(), "Step 5 of 7");
}

TEST(ClickTestDrag, OnlyADropOnTheDropAreaCompletesTheStep)
{
    const PauseRecorder pauses;
    const harn5::RunRecord run = RunClickTest(Layout(false), [](Dialog& d) {
        ToDragStep(d);
        // A drag from elsewhere, and a press released before it moved, start nothing.
        d.Send(WM_LBUTTONDOWN, MK_LBUTTON, Plain(d));
        d.Send(WM_MOUSEMOVE, MK_LBUTTON, At(d, IDC_CT_DROP_AREA));
        d.Send(WM_LBUTTONUP, 0, At(d, IDC_CT_DROP_AREA));
        EXPECT_EQ(StepText(), "Step 5 of 7");
        ::PostMessageW(d.hwnd(), WM_LBUTTONUP, 0, At(d, IDC_CT_DRAG_ITEM));
        d.Send(WM_LBUTTONDOWN, MK_LBUTTON, At(d, IDC_CT_DRAG_ITEM));
        EXPECT_TRUE(d.Visible(IDC_CT_DRAG_ITEM));
        EXPECT_EQ(::GetCapture(), nullptr);
        // Dropped beside the area: the item comes back for another try.
        PressAndDragFrom(d, At(d, IDC_CT_DRAG_ITEM));
        EXPECT_FALSE(d.Visible(IDC_CT_DRAG_ITEM));
        EXPECT_EQ(::GetCapture(), d.hwnd());
        d.Send(WM_LBUTTONUP, 0, Plain(d));
        EXPECT_TRUE(d.Visible(IDC_CT_DRAG_ITEM));
        EXPECT_EQ(::GetCapture(), nullptr);
        // The button found up during a move abandons the drag the same way.
        PressAndDragFrom(d, At(d, IDC_CT_DRAG_ITEM));
        d.Send(WM_MOUSEMOVE, 0, At(d, IDC_CT_DROP_AREA));
        EXPECT_TRUE(d.Visible(IDC_CT_DRAG_ITEM));
        EXPECT_EQ(StepText(), "Step 5 of 7");
        DragTo(d, IDC_CT_DROP_AREA);
        EXPECT_EQ(StepText(), "Step 6 of 7");
        EXPECT_FALSE(d.Visible(IDC_CT_DROP_AREA));
        EXPECT_TRUE(d.Visible(IDC_CT_WHEEL_BAR));
    });
    EXPECT_EQ(pauses.pauses().back(), "Step 5 of 7 1000");
}

TEST(ClickTestDrag, EveryEndDuringADragEndsTheDragCleanly)
{
    struct Case {
        const char* name;
        Action end;
        TestResult verdict;
    };
    const std::vector<Case> cases = {
        {"release over the close picture", [](const Dialog& d) { d.Send(WM_LBUTTONUP, 0, At(d, IDC_CT_CLOSE)); },
         TestResult::USERABORTED()},
        {"Cancel", [](const Dialog& d) { d.Click(IDCANCEL); }, TestResult::USERABORTED()},
        // The key as the modal loop hands it over.
        {"Escape",
         [](const Dialog& d) {
             MSG key{d.hwnd(), WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
             ::IsDialogMessageW(d.hwnd(), &key);
         },
         TestResult::USERABORTED()},
        {"Fail", [](const Dialog& d) { d.Click(IDC_CT_FAIL); }, TestResult::FAIL()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const harn5::RunRecord run = RunClickTest(Layout(false), [&c](Dialog& d) {
            const PauseRecorder pauses;
            ToDragStep(d);
            PressAndDragFrom(d, At(d, IDC_CT_DRAG_ITEM));
            ASSERT_NE(::ImageList_GetDragImage(nullptr, nullptr), nullptr) << "a drag under way";
            c.end(d);
            EXPECT_EQ(::GetCapture(), nullptr);
            EXPECT_EQ(::ImageList_GetDragImage(nullptr, nullptr), nullptr) << "no drag image left";
        });
        ASSERT_TRUE(run.verdict.has_value());
        EXPECT_EQ(*run.verdict, c.verdict);
    }
}

TEST(ClickTestDrag, PointerPositionShowsOnlyOnceThePointerMoves)
{
    RunClickTest(Layout(false), [](Dialog& d) {
        const PauseRecorder pauses;
        ToDragStep(d);
        EXPECT_EQ(d.Text(IDC_CT_POSITION_LABEL), L"Pointer position:");
        ::SetCursorPos(0, 0);
        d.Send(WM_TIMER, 1010);
        EXPECT_EQ(d.Text(IDC_CT_POSITION_VALUE), L"");
        ::SetCursorPos(123, 45);
        d.Send(WM_TIMER, 1010);
        EXPECT_EQ(d.Text(IDC_CT_POSITION_VALUE), L"123 , 45");
    });
}

TEST(ClickTestWheel, UpTakesEightNotchesAndDownNine)
{
    const PauseRecorder pauses;
    RunClickTest(Layout(false), [](Dialog& d) {
        ToDragStep(d);
        DragTo(d, IDC_CT_DROP_AREA);
        Wheel(d, -1);
        EXPECT_EQ(WheelPosition(d), 0) << "a notch down does nothing at the up step";
        std::vector<int> up;
        for (int notch = 0; notch < 7; ++notch) {
            Wheel(d, 1);
            up.push_back(WheelPosition(d));
        }
        EXPECT_EQ(up, (std::vector<int>{13, 26, 39, 52, 65, 78, 91}));
        EXPECT_EQ(d.Text(IDC_CT_WHEEL_VALUE), L"91");
        EXPECT_EQ(StepText(), "Step 6 of 7");
        Wheel(d, 1);
        EXPECT_EQ(StepText(), "Step 7 of 7");
        EXPECT_EQ(WheelPosition(d), 100) << "the down step starts full";
        EXPECT_TRUE(d.Visible(IDC_CT_WHEEL_DOWN) && !d.Visible(IDC_CT_WHEEL_UP));
        Wheel(d, 1);
        EXPECT_EQ(WheelPosition(d), 100) << "a notch up does nothing at the down step";
        Wheel(d, -8);
        EXPECT_EQ(WheelPosition(d), 0);
        EXPECT_TRUE(::IsWindowVisible(d.hwnd())) << "the ninth notch ends it";
        Wheel(d, -1);
        // The dialog is hidden now: its controls' own styles tell what it showed last.
        EXPECT_FALSE(Shown(d, IDC_CT_WHEEL_BAR));
        EXPECT_TRUE(Shown(d, IDC_CT_WHEEL_SUCCESS));
    });
}

// Moves the dialog by a press in its top strip that drags until the button goes up; answers
// where the window went.
POINT MoveByTopStrip(const Dialog& d)
{
    RECT window{};
    ::GetWindowRect(d.hwnd(), &window);
    const POINT grab{window.left + 100, window.top + 10};
    ::SetCursorPos(grab.x, grab.y);
    ::PostMessageW(d.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(130, 50));
    ::SetCursorPos(grab.x + 40, grab.y + 30);
    ::PostMessageW(d.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(140, 40));
    ::PostMessageW(d.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(140, 40));
    d.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 10));
    ::GetWindowRect(d.hwnd(), &window);
    return {window.left, window.top};
}

TEST(ClickTestWindow, MovedDialogOpensThereInTheNextRun)
{
    POINT first{};
    POINT moved{};
    RunClickTest(Layout(false), [&](Dialog& d) {
        RECT window{};
        ::GetWindowRect(d.hwnd(), &window);
        first = {window.left, window.top};
        moved = MoveByTopStrip(d);
    });
    EXPECT_NE(moved.x, first.x);
    EXPECT_EQ(CMouseClickTestDlg::rememberedPosition().x, moved.x);
    EXPECT_EQ(CMouseClickTestDlg::rememberedPosition().y, moved.y);
    EXPECT_NE(moved.y, 0);
    POINT second{};
    RunClickTest(Layout(false), [&second](Dialog& d) {
        RECT window{};
        ::GetWindowRect(d.hwnd(), &window);
        second = {window.left, window.top};
    });
    EXPECT_EQ(second.x, moved.x);
    EXPECT_EQ(second.y, moved.y);
}

TEST(ClickTestWindow, TheDragStepKeepsTheTopStrip)
{
    const PauseRecorder pauses;
    RunClickTest(Layout(false), [](Dialog& d) {
        ToDragStep(d);
        RECT window{};
        ::GetWindowRect(d.hwnd(), &window);
        const POINT moved = MoveByTopStrip(d);
        EXPECT_NE(moved.x, window.left) << "moved at step 7 as at every other step";
        EXPECT_EQ(CMouseClickTestDlg::rememberedPosition().x, moved.x);
        EXPECT_EQ(StepText(), "Step 5 of 7");
        EXPECT_TRUE(d.Visible(IDC_CT_DRAG_ITEM));
        // The drag itself is untouched.
        DragTo(d, IDC_CT_DROP_AREA);
        EXPECT_EQ(StepText(), "Step 6 of 7");
    });
}

}  // namespace
