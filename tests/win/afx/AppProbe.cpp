// A framework application run as a child process by AppTest: it writes what the framework did
// to the file named by KSTR_PROBE_OUT. Its first parameter chooses the scenario:
//   init-fails      InitInstance answers FALSE
//   quit CODE       InitInstance posts WM_QUIT(CODE); the framework's Run pumps it
//   params ...      Run reports every parameter ParseCommandLine delivers and returns 42
#include <afxwin.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

std::string Utf8(const wchar_t* text)
{
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<size_t>(size > 0 ? size - 1 : 0), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    return out;
}

struct FileCloser {
    void operator()(FILE* file) const { std::fclose(file); }
};

class ProbeLog {
public:
    ProbeLog() : m_file(std::fopen(std::getenv("KSTR_PROBE_OUT"), "ab")) {}
    void Line(const std::string& text)
    {
        if (m_file) {
            std::fprintf(m_file.get(), "%s\n", text.c_str());
            std::fflush(m_file.get());
        }
    }

private:
    std::unique_ptr<FILE, FileCloser> m_file;
};

class RecordingInfo : public CCommandLineInfo {
public:
    explicit RecordingInfo(ProbeLog& log) : m_log(log) {}
    void ParseParam(const wchar_t* pszParam, BOOL bFlag, BOOL bLast) override
    {
        m_log.Line("param " + Utf8(pszParam) + (bFlag ? " flag" : " plain") + (bLast ? " last" : ""));
    }

private:
    ProbeLog& m_log;
};

class ProbeApp : public CWinApp {
public:
    BOOL InitInstance() override
    {
        m_log.Line("InitInstance");
        m_log.Line(std::string("instance ") +
                   (AfxGetInstanceHandle() == ::GetModuleHandleW(nullptr) ? "module" : "other"));
        m_log.Line(std::string("app ") + (AfxGetApp() == this ? "registered" : "missing"));
        const std::wstring command = m_lpCmdLine != nullptr ? m_lpCmdLine : L"";
        m_mode = command.substr(0, command.find(L' '));
        if (m_mode == L"init-fails") {
            return FALSE;
        }
        if (m_mode == L"quit") {
            ::PostQuitMessage(std::stoi(command.substr(5)));
        }
        return TRUE;
    }

    int Run() override
    {
        if (m_mode != L"params") {
            return CWinApp::Run();
        }
        m_log.Line("Run");
        RecordingInfo info(m_log);
        ParseCommandLine(info);
        return 42;
    }

    int ExitInstance() override
    {
        m_log.Line("ExitInstance");
        return CWinApp::ExitInstance();
    }

private:
    ProbeLog m_log;
    std::wstring m_mode;
};

ProbeApp theApp;

}  // namespace
