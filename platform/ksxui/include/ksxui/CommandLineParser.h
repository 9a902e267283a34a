#pragma once
// Collects the process's command-line parameters, as CWinApp::ParseCommandLine delivers
// them, into a narrow UTF-8 argument vector for the host library.
#include <string>
#include <vector>

#include <afxwin.h>

#include "ksx/String.h"

namespace ksxui {

class CommandLineParser : public CCommandLineInfo {
public:
    // moduleFileName becomes argv()[0].
    explicit CommandLineParser(const ksx::String& moduleFileName);
    ~CommandLineParser() override;

    // Keeps every parameter in order and as it was typed: a flag gets its '-' or '/' back.
    void ParseParam(const wchar_t* pszParam, BOOL bFlag, BOOL bLast) override;

    // The module file name plus the parameters received so far.
    int argc() const;
    // NUL-terminated UTF-8 texts, followed by a null pointer; valid while the parser lives
    // and receives no further parameter.
    const char** argv() const;

private:
    std::vector<std::string> m_args;
    std::vector<const char*> m_argv;
};

}  // namespace ksxui
