#pragma once
// Receives the command line's parameters, one call each, from CWinApp::ParseCommandLine.
#include <windows.h>

class CCommandLineInfo {
public:
    CCommandLineInfo();
    virtual ~CCommandLineInfo();
    CCommandLineInfo(const CCommandLineInfo&) = delete;
    CCommandLineInfo& operator=(const CCommandLineInfo&) = delete;

    // pszParam without its leading '-' or '/'; bFlag tells that one was stripped;
    // bLast marks the final parameter. The base understands no parameter of its own.
    virtual void ParseParam(const wchar_t* pszParam, BOOL bFlag, BOOL bLast);
};
