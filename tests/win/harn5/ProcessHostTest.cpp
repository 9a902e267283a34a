// The process-wide host seen from outside: a structured exception escaping a test, stop
// requests reaching a test that polls from a timer, language files beside the executable.
#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <string>

#include "ChildProcess.h"

namespace {

constexpr DWORD kHangGuard = 60000;   // only against a hanging child; nothing is timed

std::wstring quoted(const std::wstring& text)
{
    return L"\"" + text + L"\"";
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(StructuredException, EscapingATestIsReportedAndEndsTheProcessWithSeven)
{
    struct Case {
        const wchar_t* test;
        std::string exception;
    };
    for (const Case& c : {Case{L"RaiseAssertion", "0x00000007"},
                          Case{L"AccessViolation", "0xC0000005 access violation"}}) {
        ChildProcess child;
        child.start(std::wstring(L"--no-system-devices --device Mouse --test ") + c.test + L" --report " +
                    quoted(child.path(L"report.json")));
        ASSERT_TRUE(child.wait(kHangGuard));
        EXPECT_EQ(child.exitCode(), 7u);
        const std::string report = ChildProcess::readFile(child.path(L"report.json"));
        const std::string test = ChildProcess::utf8(c.test);
        EXPECT_TRUE(contains(report, "\"test\":\"" + test + "\"")) << report;
        EXPECT_TRUE(contains(report, "\"state\":\"finished\",\"verdict\":\"EXITEDABNORMALLY\",\"verdictValue\":7"))
            << report;
        EXPECT_TRUE(contains(report, "\"exception\":\"" + c.exception + "\"")) << report;
        EXPECT_TRUE(contains(report, "\"exitStatus\":7")) << report;
        EXPECT_EQ(child.err(), test + " ended abnormally: structured exception " + c.exception + "\n");
    }
}

TEST(StopRequest, StopFileOrTimeoutEndsATestPollingFromATimer)
{
    for (const bool byFile : {true, false}) {
        ChildProcess child;
        const std::wstring stopFile = child.path(L"stop");
        child.start(L"--no-system-devices --device Mouse --test WaitForStop --report " +
                    quoted(child.path(L"report.json")) +
                    (byFile ? L" --stop-file " + quoted(stopFile) : std::wstring(L" --stop-after 0.2")));
        if (byFile) {
            EXPECT_FALSE(child.wait(300));   // still waiting: nothing asked it to stop
            const HANDLE file = CreateFileW(stopFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                            FILE_ATTRIBUTE_NORMAL, nullptr);
            ASSERT_NE(file, INVALID_HANDLE_VALUE);
            CloseHandle(file);
        }
        ASSERT_TRUE(child.wait(kHangGuard));
        EXPECT_EQ(child.exitCode(), 3u) << "USERABORTED";
        EXPECT_TRUE(contains(ChildProcess::readFile(child.path(L"report.json")), "\"verdict\":\"USERABORTED\""));
        EXPECT_TRUE(contains(child.out(), "WaitForStop on Device 1 (Mouse): USERABORTED")) << child.out();
    }
}

TEST(StopRequest, CtrlCOnTheConsoleAsksForAStop)
{
    // The child gets a console of its own; this process joins it just long enough to press
    // Ctrl+C there, ignoring the event itself.
    ChildProcess child;
    child.start(L"--no-system-devices --device Mouse --test WaitForStop --report " + quoted(child.path(L"report.json")),
                CREATE_NEW_CONSOLE);
    // Pressed before the child listens, Ctrl+C would simply end it: wait for its run to start.
    const ULONGLONG deadline = GetTickCount64() + kHangGuard;
    while (!contains(ChildProcess::readFile(child.path(L"report.json")), "\"state\":\"running\"") &&
           GetTickCount64() < deadline) {
        ASSERT_FALSE(child.wait(20));
    }
    FreeConsole();
    ASSERT_TRUE(AttachConsole(child.processId())) << GetLastError();
    SetConsoleCtrlHandler(nullptr, TRUE);
    const BOOL sent = GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    const DWORD error = GetLastError();
    FreeConsole();
    ASSERT_TRUE(sent) << error;
    ASSERT_TRUE(child.wait(kHangGuard));
    EXPECT_EQ(child.exitCode(), 3u) << "USERABORTED";
}

TEST(ProcessHost, FindsLanguagesBesideTheExecutableAndTheSystemMouse)
{
    ChildProcess german;
    german.start(L"--lang de --list");
    ASSERT_TRUE(german.wait(kHangGuard));
    EXPECT_EQ(german.exitCode(), 0u) << german.err();
    EXPECT_TRUE(contains(german.out(), "MouseTest \"Maustest\"")) << german.out();

    ChildProcess mouse;
    mouse.start(L"--test MouseTest --report " + quoted(mouse.path(L"report.json")));
    ASSERT_TRUE(mouse.wait(kHangGuard));
    EXPECT_EQ(mouse.exitCode(), 0u) << mouse.err();
    const std::string report = ChildProcess::readFile(mouse.path(L"report.json"));
    EXPECT_TRUE(contains(report, "\"device\":{\"name\":\"System mouse\",\"capabilities\":\"Mouse\"")) << report;
}

TEST(ProcessHost, LanguageFileAboveTheLimitGetsOneLineAndSeven)
{
    ChildProcess child;
    const std::wstring big = child.path(L"big.lang");
    {
        std::ofstream file(big.c_str(), std::ios::binary);
        file << std::string(1024 * 1024 + 1, '#');
    }
    // A device without end reaches the same limit instead of filling the memory.
    for (const std::wstring& lang : {big, std::wstring(L"Z:\\dev\\zero")}) {
        child.start(L"--lang " + quoted(lang) + L" --test MouseTest");
        ASSERT_TRUE(child.wait(kHangGuard));
        EXPECT_EQ(child.exitCode(), 7u);
        EXPECT_EQ(child.err(), "HarnException: " + ChildProcess::utf8(lang) +
                                   ": the language file is larger than 1024 KB; is it the right file?\n");
        EXPECT_EQ(child.out(), "");
    }
}

TEST(ProcessHost, BadOptionGetsOneLineAndSeven)
{
    ChildProcess child;
    child.start(L"--test MouseTest --frobnicate");
    ASSERT_TRUE(child.wait(kHangGuard));
    EXPECT_EQ(child.exitCode(), 7u);
    EXPECT_EQ(child.err(), "HarnException: unknown option \"--frobnicate\"; --help lists the options\n");
    EXPECT_EQ(child.out(), "");
}
