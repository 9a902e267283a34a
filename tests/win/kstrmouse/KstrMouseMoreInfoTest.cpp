// The MouseTest entry point run by the host, the More Info dialog over it, stop requests, and
// the start-up report when OLE is not available.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "MouseDlgHarness.h"
#include "harn5/DiagModule.h"
#include "resource.h"

namespace {

using mousetest::Dialog;
using mousetest::NextModalLoop;
using mousetest::PumpUntil;
using mousetest::RunMouseTestInHost;

std::string TempPath(const std::string& name)
{
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    return (std::filesystem::path(folder) / name).string();
}

std::wstring WindowText(HWND hWnd)
{
    wchar_t text[256] = {};
    ::GetWindowTextW(hWnd, text, 256);
    return text;
}

TEST(MouseTestInHost, VerdictAndEventsReachTheRunRecord)
{
    const harn5::RunRecord failed = RunMouseTestInHost({}, [](Dialog& d) {
        EXPECT_EQ(WindowText(d.hwnd()), L"Mouse Test");
        EXPECT_EQ(d.Text(IDC_PASS), L"Pass");
        d.Click(IDC_FAIL);
    });
    EXPECT_EQ(failed.verdict, harn5::TestResult::FAIL());
    ASSERT_EQ(failed.events.size(), 1u);
    EXPECT_EQ(failed.events[0].name + " " + failed.events[0].severity + " " + failed.events[0].sourceFile + " " +
                  std::to_string(failed.events[0].line),
              "TestFailed error KstrMouseDlg 425");

    bool closedItself = false;
    const harn5::RunRecord stopped = RunMouseTestInHost({"--stop-after", "0"}, [&](Dialog& d) {
        closedItself = PumpUntil([&] { return !::IsWindowVisible(d.hwnd()); });
    });
    EXPECT_TRUE(closedItself);
    EXPECT_EQ(stopped.verdict, harn5::TestResult::USERABORTED());
    EXPECT_TRUE(stopped.events.empty());
}

TEST(MoreInfo, JoinsItsTextsIntoFiveParagraphsEachTimeItOpens)
{
    // An empty text keeps its separators.
    const std::string language = TempPath("kstrmouse_moreinfo.lang");
    std::ofstream(language) << "@language xx\n@name Test\n@direction ltr\n[Tests]\nMouseTest = Maus\n[Strings]\n"
                               "MsgMouseMoreInfo3200 = A\nMsgMouseMoreInfo3201 = B\nMsgMouseMoreInfo3202 = C\n"
                               "MsgMouseMoreInfo3203 =\nMsgMouseMoreInfo3204 = E\nMsgMouseMoreInfo3205 = F\n"
                               "MsgMouseMoreInfo3206 = G\nMsgMouseMoreInfo3207 = H\nMsgMouseMoreInfo3208 = I\n"
                               "MsgMouseMoreInfoButtonOk = Gut\n";
    int opened = 0;
    RunMouseTestInHost({"--lang", language}, [&](Dialog& d) {
        for (int i = 0; i < 2; ++i) {
            const NextModalLoop inMoreInfo([&](Dialog& info) {
                ++opened;
                EXPECT_NE(info.hwnd(), d.hwnd());
                EXPECT_EQ(WindowText(info.hwnd()), L"Maus");
                EXPECT_EQ(info.Text(IDC_MORE_INFO_TEXT), L"A\r\n\r\nB\r\n\r\nC  E F G\r\n\r\nH\r\n\r\nI");
                EXPECT_EQ(info.Text(IDOK), L"Gut");
                EXPECT_EQ(::GetFocus(), info.Item(IDOK));
                info.Click(IDOK);
            });
            d.Click(IDC_MORE_INFO);  // returns once More Info has closed
            EXPECT_TRUE(::IsWindowEnabled(d.hwnd()));
        }
    });
    EXPECT_EQ(opened, 2);
}

TEST(MoreInfo, StopRequestClosesItAndThenTheTest)
{
    const std::string stopFile = TempPath("kstrmouse_stop_request");
    std::filesystem::remove(stopFile);
    bool moreInfoClosed = false;
    bool testStillOpen = false;
    bool testClosed = false;
    const harn5::RunRecord run = RunMouseTestInHost({"--stop-file", stopFile}, [&](Dialog& d) {
        const NextModalLoop inMoreInfo([&](Dialog& info) {
            std::ofstream(stopFile) << "stop";
            moreInfoClosed = PumpUntil([&] { return !::IsWindow(info.hwnd()) || !::IsWindowVisible(info.hwnd()); });
        });
        d.Click(IDC_MORE_INFO);
        // The test's own poll saw the request while More Info was open and left the ending to a later tick.
        testStillOpen = ::IsWindowVisible(d.hwnd()) != FALSE;
        testClosed = PumpUntil([&] { return !::IsWindowVisible(d.hwnd()); });
    });
    std::filesystem::remove(stopFile);
    EXPECT_TRUE(moreInfoClosed);
    EXPECT_TRUE(testStillOpen);
    EXPECT_TRUE(testClosed);
    EXPECT_EQ(run.verdict, harn5::TestResult::USERABORTED());
}

// Without OLE the drop target cannot be registered: the dialog reports it and runs on.
TEST(MouseDialogStartUp, DropTargetRegistrationFailureIsReportedAsErrorDuringInit)
{
    if (mousetest::OleInitialised()) {
        GTEST_SKIP() << "OLE was initialised by an earlier test of this process";
    }
    const std::size_t mark = mousetest::ModuleEventCount();
    EXPECT_EQ(mousetest::RunMouseDialog([](Dialog& d) { d.Click(IDC_PASS); }, mousetest::Ole::Leave),
              harn5::TestResult::PASS());
    const std::vector<harn5::EventRecord> events = mousetest::ModuleEventsSince(mark);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].name, "ErrorDuringInit");
    EXPECT_EQ(events[0].severity, "warning");
    EXPECT_EQ(events[0].sourceFile, "KstrMouseDlg");
    EXPECT_EQ(events[0].line, 174);
}

}  // namespace
