#pragma once
// The application's thread: its main window and the InitInstance / Run / ExitInstance cycle.
#include <windows.h>

#include "afx/CCmdTarget.h"

class CWnd;

class CWinThread : public CCmdTarget {
public:
    CWinThread();
    ~CWinThread() override;

    // Called once before Run; FALSE ends the process without running.
    virtual BOOL InitInstance();
    // Pumps messages until WM_QUIT, then returns ExitInstance().
    virtual int Run();
    // Called last; the result is the exit status (the WM_QUIT code after Run's loop).
    virtual int ExitInstance();
    // m_pMainWnd when set, otherwise the innermost modal dialog running on this thread.
    virtual CWnd* GetMainWnd();

    CWnd* m_pMainWnd;

protected:
    // The exit status: the WM_QUIT code after Run's loop, or what a failed InitInstance set.
    int m_nExitCode;

    friend int AfxWinMain(HINSTANCE, HINSTANCE, LPWSTR, int);
};

// The application's thread object (the application), or null when none was constructed.
CWinThread* AfxGetThread();
// The main window of AfxGetThread(); without one, the innermost running modal dialog.
CWnd* AfxGetMainWnd();
