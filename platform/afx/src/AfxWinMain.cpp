#include "afx/AfxWinMain.h"

#include "afx/CWinApp.h"

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPWSTR lpCmdLine, int nCmdShow)
{
    CWinApp* pApp = AfxGetApp();
    if (pApp == nullptr) {
        return FALSE;
    }
    pApp->m_hInstance = hInstance;
    pApp->m_lpCmdLine = lpCmdLine;
    pApp->m_nCmdShow = nCmdShow;
    return TRUE;
}

int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow)
{
    if (!AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow)) {
        return -1;
    }
    CWinApp* pApp = AfxGetApp();
    // A start that fails ends with -1, unless the application set its own exit code.
    pApp->m_nExitCode = -1;
    if (!pApp->InitInstance()) {
        return pApp->ExitInstance();
    }
    return pApp->Run();
}
