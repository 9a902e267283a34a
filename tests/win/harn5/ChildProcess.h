#pragma once
// The child module program run with given options, its stdout and stderr caught in files of a
// fresh folder that also holds whatever the test puts there (report, stop file).
#include <windows.h>

#include <string>

class ChildProcess {
public:
    ChildProcess();
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    std::wstring path(const std::wstring& name) const;   // a file in the folder
    void start(const std::wstring& options, DWORD creationFlags = 0);
    DWORD processId() const;
    bool wait(DWORD milliseconds);                        // true when it ended in time
    DWORD exitCode() const;
    std::string out() const;                              // text mode: "\r\n" read as "\n"
    std::string err() const;

    static std::string utf8(const std::wstring& text);
    static std::string readFile(const std::wstring& path);
    static std::string withoutCarriageReturns(std::string text);

private:
    std::wstring m_folder;
    PROCESS_INFORMATION m_process{};
};
