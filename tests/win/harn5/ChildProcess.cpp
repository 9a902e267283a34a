#include "ChildProcess.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

HANDLE inheritableFile(const std::wstring& path)
{
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("cannot create " + ChildProcess::utf8(path));
    }
    return file;
}

}  // namespace

ChildProcess::ChildProcess()
{
    static unsigned counter = 0;
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    m_folder = std::wstring(temp) + L"harn5_child_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
               std::to_wstring(++counter);
    CreateDirectoryW(m_folder.c_str(), nullptr);
}

ChildProcess::~ChildProcess()
{
    if (m_process.hProcess != nullptr) {
        if (WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT) {
            TerminateProcess(m_process.hProcess, 99);
            WaitForSingleObject(m_process.hProcess, 5000);
        }
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(path(L"*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            DeleteFileW(path(found.cFileName).c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    RemoveDirectoryW(m_folder.c_str());
}

std::wstring ChildProcess::path(const std::wstring& name) const
{
    return m_folder + L"\\" + name;
}

void ChildProcess::start(const std::wstring& options, DWORD creationFlags)
{
    const HANDLE out = inheritableFile(path(L"stdout.txt"));
    const HANDLE err = inheritableFile(path(L"stderr.txt"));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = out;
    startup.hStdError = err;
    std::wstring commandLine = L"\"" HARN5_CHILD_MODULE L"\" " + options;
    const BOOL started = CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, creationFlags,
                                        nullptr, nullptr, &startup, &m_process);
    CloseHandle(out);
    CloseHandle(err);
    if (!started) {
        throw std::runtime_error("cannot start the child module: error " + std::to_string(GetLastError()));
    }
}

DWORD ChildProcess::processId() const
{
    return m_process.dwProcessId;
}

bool ChildProcess::wait(DWORD milliseconds)
{
    return WaitForSingleObject(m_process.hProcess, milliseconds) == WAIT_OBJECT_0;
}

DWORD ChildProcess::exitCode() const
{
    DWORD code = 0;
    GetExitCodeProcess(m_process.hProcess, &code);
    return code;
}

std::string ChildProcess::out() const
{
    return withoutCarriageReturns(readFile(path(L"stdout.txt")));
}

std::string ChildProcess::err() const
{
    return withoutCarriageReturns(readFile(path(L"stderr.txt")));
}

std::string ChildProcess::withoutCarriageReturns(std::string text)
{
    std::erase(text, '\r');
    return text;
}

std::string ChildProcess::utf8(const std::wstring& text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), nullptr, 0,
                                         nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), out.data(), size, nullptr,
                        nullptr);
    return out;
}

std::string ChildProcess::readFile(const std::wstring& path)
{
    std::ifstream in(std::filesystem::path(path), std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}
