#include "afx/CWinApp.h"

#include <memory>

#include <shellapi.h>

namespace {

CWinApp* g_pApp = nullptr;

// The executable's file name without folder and extension.
std::wstring ExecutableBaseName()
{
    wchar_t path[MAX_PATH] = {};
    const DWORD length = ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring name(path, length);
    const auto slash = name.find_last_of(L"\\/");
    if (slash != std::wstring::npos) {
        name.erase(0, slash + 1);
    }
    const auto dot = name.find_last_of(L'.');
    if (dot != std::wstring::npos && dot != 0) {
        name.erase(dot);
    }
    return name;
}

struct LocalFreeDeleter {
    void operator()(LPWSTR* argv) const { ::LocalFree(argv); }
};

}  // namespace

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_pszAppName(nullptr),
      m_hInstance(nullptr),
      m_lpCmdLine(nullptr),
      m_nCmdShow(SW_SHOWNORMAL),
      m_appName(lpszAppName != nullptr ? std::wstring(lpszAppName) : ExecutableBaseName())
{
    m_pszAppName = m_appName.c_str();
    // The first application object is the process's; it stays so until it is destroyed.
    if (g_pApp == nullptr) {
        g_pApp = this;
    }
}

CWinApp::~CWinApp()
{
    if (g_pApp == this) {
        g_pApp = nullptr;
    }
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

void CWinApp::ParseCommandLine(CCommandLineInfo& rCmdInfo)
{
    int argc = 0;
    std::unique_ptr<LPWSTR, LocalFreeDeleter> argv(::CommandLineToArgvW(::GetCommandLineW(), &argc));
    if (!argv) {
        return;
    }
    for (int i = 1; i < argc; ++i) {
        const wchar_t* param = argv.get()[i];
        BOOL bFlag = FALSE;
        if (param[0] == L'-' || param[0] == L'/') {
            bFlag = TRUE;
            ++param;
        }
        rCmdInfo.ParseParam(param, bFlag, i == argc - 1);
    }
}

HICON CWinApp::LoadIcon(UINT nIDResource) const
{
    return ::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nIDResource));
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIconW(AfxGetResourceHandle(), lpszResourceName);
}

CWinApp* AfxGetApp()
{
    return g_pApp;
}

HINSTANCE AfxGetInstanceHandle()
{
    if (g_pApp != nullptr && g_pApp->m_hInstance != nullptr) {
        return g_pApp->m_hInstance;
    }
    return ::GetModuleHandleW(nullptr);
}

HINSTANCE AfxGetResourceHandle()
{
    // The module's resources are linked into the executable itself.
    return AfxGetInstanceHandle();
}

LPCTSTR AfxGetAppName()
{
    if (g_pApp != nullptr) {
        return g_pApp->m_pszAppName;
    }
    static const std::wstring name = ExecutableBaseName();
    return name.c_str();
}
