#pragma once
// The one application object of the process; constructing it registers it (AfxGetApp).
#include <string>

#include <windows.h>

#include "afx/CCommandLineInfo.h"
#include "afx/CWinThread.h"

class CWinApp : public CWinThread {
public:
    // A null name takes the executable's file name without its extension.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    BOOL InitInstance() override;

    // Feeds every argument after the program name (CommandLineToArgvW of GetCommandLineW)
    // to rCmdInfo.ParseParam; a leading '-' or '/' is stripped and reported as a flag.
    void ParseCommandLine(CCommandLineInfo& rCmdInfo);

    // An icon from the application's resources.
    HICON LoadIcon(UINT nIDResource) const;
    HICON LoadIcon(LPCTSTR lpszResourceName) const;

    LPCTSTR m_pszAppName;
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;

private:
    std::wstring m_appName;
};

// The application object, or null before one is constructed.
CWinApp* AfxGetApp();
// The module the application runs from (the executable when AfxWinInit has not run).
HINSTANCE AfxGetInstanceHandle();
// The module that dialog templates, icons and bitmaps are loaded from.
HINSTANCE AfxGetResourceHandle();
// The application's name: the title of AfxMessageBox.
LPCTSTR AfxGetAppName();
