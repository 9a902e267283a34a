// Application start-up and the process-wide helpers: AfxWinMain's life cycle and
// ParseCommandLine in a child process, window classes, OLE, the application's name.
#include <afxdisp.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

std::wstring SiblingPath(const wchar_t* fileName)
{
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring result(path);
    result.erase(result.find_last_of(L"\\/") + 1);
    return result + fileName;
}

struct ProbeRun {
    DWORD exitCode;
    std::vector<std::string> lines;
};

// Runs the probe application with the given parameters and collects what it wrote.
ProbeRun RunProbe(const std::wstring& parameters)
{
    const std::wstring exe = SiblingPath(L"afx_app_probe.exe");
    const std::wstring out = SiblingPath(L"afx_app_probe.out");
    ::DeleteFileW(out.c_str());
    ::SetEnvironmentVariableW(L"KSTR_PROBE_OUT", out.c_str());

    std::wstring commandLine = L"\"" + exe + L"\" " + parameters;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    ProbeRun run{0xFFFFFFFF, {}};
    if (!::CreateProcessW(exe.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          nullptr, &startup, &process)) {
        ADD_FAILURE() << "cannot start the probe, error " << ::GetLastError();
        return run;
    }
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(process.hProcess, 60000));
    ::GetExitCodeProcess(process.hProcess, &run.exitCode);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);

    std::ifstream file(out.c_str(), std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        run.lines.push_back(line);
    }
    return run;
}

TEST(AppLifecycle, InitInstanceFailureCallsExitInstanceAndSkipsRun)
{
    const ProbeRun run = RunProbe(L"init-fails");
    EXPECT_EQ(255u, run.exitCode & 0xFF);  // -1; Wine keeps the low 8 bits
    const std::vector<std::string> expected = {"InitInstance", "instance module", "app registered",
                                               "ExitInstance"};
    EXPECT_EQ(expected, run.lines);
}

TEST(AppLifecycle, DefaultRunPumpsUntilQuitAndReturnsExitInstance)
{
    const ProbeRun run = RunProbe(L"quit 7");
    EXPECT_EQ(7u, run.exitCode);
    ASSERT_FALSE(run.lines.empty());
    EXPECT_EQ("InitInstance", run.lines.front());
    EXPECT_EQ("ExitInstance", run.lines.back());
}

TEST(AppLifecycle, ParseCommandLineStripsFlagMarksAndMarksTheLast)
{
    const ProbeRun run = RunProbe(L"params -a /b plain \"two words\" \u00dcn\u00efc\u00f6de --long -");
    EXPECT_EQ(42u, run.exitCode);
    const std::vector<std::string> expected = {
        "InitInstance",
        "instance module",
        "app registered",
        "Run",
        "param params plain",
        "param a flag",
        "param b flag",
        "param plain plain",
        "param two words plain",
        "param \xc3\x9cn\xc3\xaf" "c\xc3\xb6" "de plain",
        "param -long flag",
        "param  flag last",
    };
    EXPECT_EQ(expected, run.lines);
}

TEST(AfxRegisterWndClass, RegistersARealClassOncePerCombination)
{
    const LPCTSTR name = AfxRegisterWndClass(0x200B, nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, name);

    WNDCLASSEXW info{};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(::GetClassInfoExW(AfxGetInstanceHandle(), name, &info));
    EXPECT_EQ(static_cast<UINT>(CS_BYTEALIGNWINDOW | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW),
              info.style);
    EXPECT_EQ(nullptr, info.hCursor);
    EXPECT_EQ(nullptr, info.hbrBackground);

    EXPECT_STREQ(name, AfxRegisterWndClass(0x200B, nullptr, nullptr, nullptr));
    HBRUSH brush = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
    const LPCTSTR other = AfxRegisterWndClass(0x200B, nullptr, brush, nullptr);
    ASSERT_NE(nullptr, other);
    EXPECT_STRNE(name, other);

    CWnd window;
    ASSERT_TRUE(window.Create(name, L"class test", WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0));
    wchar_t className[128] = {};
    ::GetClassNameW(window.m_hWnd, className, 128);
    EXPECT_STREQ(name, className);
}

TEST(AfxOleInit, InitialisesTheCallingThreadOnceUnlessItIsMultithreaded)
{
    BOOL onMultithreaded = TRUE;
    std::thread worker([&onMultithreaded] {
        ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
        onMultithreaded = AfxOleInit();
        ::CoUninitialize();
    });
    worker.join();
    EXPECT_FALSE(onMultithreaded);

    ASSERT_TRUE(AfxOleInit());
    EXPECT_TRUE(AfxOleInit());
    // The thread is a single-threaded apartment now: it cannot become a multithreaded one.
    EXPECT_EQ(RPC_E_CHANGED_MODE, ::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
}

TEST(AfxGetAppName, IsTheGivenNameOrTheExecutablesName)
{
    {
        CWinApp app(L"Probe Title");
        EXPECT_EQ(&app, AfxGetApp());
        EXPECT_STREQ(L"Probe Title", AfxGetAppName());
    }
    {
        CWinApp app;
        EXPECT_STREQ(L"afx_tests", app.m_pszAppName);
    }
    EXPECT_EQ(nullptr, AfxGetApp());
    EXPECT_STREQ(L"afx_tests", AfxGetAppName());
}

}  // namespace
