// Failures the system can hand the module, injected through the test executable's import slots:
// OLE that cannot start, a drop target that cannot be registered, timers that cannot be set, a
// dialog that cannot be created and one whose controls cannot be bound. Each ends as the module
// promises: the verdict, the event, the dialog gone or still there.
#include <gtest/gtest.h>

#include <windows.h>

#include <afxwin.h>
#include <ole2.h>

#include <string>
#include <vector>

#include "KstrMouse.h"
#include "MouseDlgHarness.h"
#include "harn5/DiagModule.h"
#include "harn5/Host.h"
#include "resource.h"

using RegisterDragDropFn = HRESULT(WINAPI*)(HWND, LPDROPTARGET);
using SetTimerFn = UINT_PTR(WINAPI*)(HWND, UINT_PTR, UINT, TIMERPROC);
using DialogBoxFn = INT_PTR(WINAPI*)(HINSTANCE, LPCDLGTEMPLATEW, HWND, DLGPROC, LPARAM);
using GetDlgItemFn = HWND(WINAPI*)(HWND, int);
using OleInitializeFn = HRESULT(WINAPI*)(LPVOID);
using MessageBoxFn = int(WINAPI*)(const MSGBOXPARAMSW*);
extern "C" RegisterDragDropFn __imp_RegisterDragDrop;
extern "C" SetTimerFn __imp_SetTimer;
extern "C" DialogBoxFn __imp_DialogBoxIndirectParamW;
extern "C" GetDlgItemFn __imp_GetDlgItem;
extern "C" OleInitializeFn __imp_OleInitialize;
extern "C" MessageBoxFn __imp_MessageBoxIndirectW;

namespace {

using harn5::TestResult;
using mousetest::Dialog;
using mousetest::ImportOverride;

std::vector<std::string> Events(const harn5::RunRecord& run)
{
    std::vector<std::string> events;
    for (const harn5::EventRecord& e : run.events) {
        events.push_back(e.name + " " + e.severity + " " + e.sourceFile + " " + std::to_string(e.line));
    }
    return events;
}

TestResult Verdict(const harn5::RunRecord& run)
{
    return run.verdict.value_or(TestResult::TESTNOTSTARTED());
}

HRESULT WINAPI RefuseDropTarget(HWND, LPDROPTARGET)
{
    return E_OUTOFMEMORY;
}

TEST(FaultInjection, DropTargetRefusedIsReportedAndTheTestGoesOn)
{
    const ImportOverride<RegisterDragDropFn> refuse(__imp_RegisterDragDrop, &RefuseDropTarget);
    const harn5::RunRecord run = mousetest::RunMouseTestInHost({}, [](Dialog& d) { d.Click(IDC_PASS); });
    EXPECT_EQ(Verdict(run), TestResult::PASS());
    EXPECT_EQ(Events(run), std::vector<std::string>{"ErrorDuringInit warning KstrMouseDlg 174"});
}

// Timers of one period cannot be set; every other timer works.
SetTimerFn s_realSetTimer = nullptr;
UINT s_refusedPeriod = 0;
UINT_PTR WINAPI RefuseOnePeriod(HWND window, UINT_PTR id, UINT period, TIMERPROC callback)
{
    return period == s_refusedPeriod ? 0 : s_realSetTimer(window, id, period, callback);
}

class TimerRefusal {
public:
    explicit TimerRefusal(UINT period) : m_import(__imp_SetTimer, &RefuseOnePeriod)
    {
        s_realSetTimer = m_import.real();
        s_refusedPeriod = period;
    }

private:
    ImportOverride<SetTimerFn> m_import;
};

TEST(FaultInjection, StopTimerRefusedEndsTheClassicTestAtOnce)
{
    const TimerRefusal refuse(750);
    bool shown = false;
    const harn5::RunRecord run = mousetest::RunMouseTestInHost({}, [&shown](Dialog&) { shown = true; });
    EXPECT_EQ(Verdict(run), TestResult::INTERNALERROR());
    EXPECT_FALSE(shown);
}

TEST(FaultInjection, MoreInfoWithoutItsStopTimerClosesAndTheTestGoesOn)
{
    const TimerRefusal refuse(250);
    const harn5::RunRecord run = mousetest::RunMouseTestInHost({}, [](Dialog& d) {
        // Returns only because More Info closed again at once.
        d.Click(IDC_MORE_INFO);
        EXPECT_TRUE(::IsWindowVisible(d.hwnd()));
        d.Click(IDC_PASS);
    });
    EXPECT_EQ(Verdict(run), TestResult::PASS());
}

INT_PTR WINAPI NoDialog(HINSTANCE, LPCDLGTEMPLATEW, HWND, DLGPROC, LPARAM)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return -1;
}

TEST(FaultInjection, DialogThatCannotBeCreatedLeavesEachTestsOwnVerdict)
{
    const ImportOverride<DialogBoxFn> refuse(__imp_DialogBoxIndirectParamW, &NoDialog);
    EXPECT_EQ(Verdict(mousetest::RunMouseTestInHost({}, [](Dialog&) {})), TestResult::TESTNOTSTARTED());
    EXPECT_EQ(Verdict(mousetest::RunTestInHost("MouseInteractiveTest", {}, [](Dialog&) {})), TestResult::CANNOTRUN());
}

// One control of the template cannot be found, so binding the controls fails.
GetDlgItemFn s_realGetDlgItem = nullptr;
int s_missingControl = 0;
HWND WINAPI LoseOneControl(HWND dialog, int id)
{
    return id == s_missingControl ? nullptr : s_realGetDlgItem(dialog, id);
}

TEST(FaultInjection, ControlsThatCannotBeBoundEndTheDialogBeforeTheUserSeesIt)
{
    const ImportOverride<GetDlgItemFn> lose(__imp_GetDlgItem, &LoseOneControl);
    s_realGetDlgItem = lose.real();
    struct Case {
        const char* test;
        int control;
        TestResult verdict;
    };
    const Case cases[] = {
        {"MouseTest", IDC_WHEEL_BAR, TestResult::TESTNOTSTARTED()},
        {"MouseInteractiveTest", IDC_CT_WHEEL_BAR, TestResult::CANNOTRUN()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.test);
        s_missingControl = c.control;
        bool shown = false;
        const harn5::RunRecord run = mousetest::RunTestInHost(c.test, {}, [&shown](Dialog&) { shown = true; });
        EXPECT_EQ(Verdict(run), c.verdict);
        EXPECT_FALSE(shown);
    }
}

HRESULT WINAPI OleRefused(LPVOID)
{
    return E_OUTOFMEMORY;
}

std::wstring s_messageBoxText;
int WINAPI RecordMessageBox(const MSGBOXPARAMSW* params)
{
    s_messageBoxText = params->lpszText;
    return IDOK;
}

TEST(FaultInjection, OleThatCannotStartLeavesTheClassicTestUnableToRunWithAMessageOnlyWhenSomeoneIsThere)
{
    const ImportOverride<OleInitializeFn> refuse(__imp_OleInitialize, &OleRefused);
    const ImportOverride<MessageBoxFn> record(__imp_MessageBoxIndirectW, &RecordMessageBox);
    harn5::DiagModule::setModuleInitCallback(&moduleInit);
    for (const bool console : {true, false}) {
        s_messageBoxText.clear();
        harn5::Host::process().setConsoleInput(console);
        const harn5::RunRecord run =
            mousetest::RunMouseTestInHost({}, [](Dialog&) { ADD_FAILURE() << "the dialog opened without OLE"; });
        EXPECT_EQ(run.verdict, TestResult::CANNOTRUN());
        EXPECT_EQ(run.reason, "OLE could not be initialised");
        EXPECT_EQ(s_messageBoxText, console ? L"Ole Initialization Failed" : L"");
    }
}

}  // namespace
