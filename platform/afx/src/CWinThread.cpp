#include "afx/CWinThread.h"

#include "AfxThreadState.h"
#include "afx/CDialog.h"
#include "afx/CWinApp.h"

CWinThread::CWinThread() : m_pMainWnd(nullptr), m_nExitCode(0) {}

CWinThread::~CWinThread() = default;

BOOL CWinThread::InitInstance()
{
    return FALSE;  // a thread without its own start-up has nothing to run
}

int CWinThread::Run()
{
    AfxThreadState& state = AfxThreadState::Get();
    MSG msg{};
    for (;;) {
        const BOOL got = ::GetMessageW(&msg, nullptr, 0, 0);
        if (got == 0) {
            m_nExitCode = static_cast<int>(msg.wParam);
            break;
        }
        if (got == -1) {
            m_nExitCode = -1;
            break;
        }
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
        state.RethrowPendingException();
        if (!::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
            // Idle: nobody may hold a temporary wrapper across messages.
            CWnd::DeleteTempMap();
        }
    }
    return ExitInstance();
}

int CWinThread::ExitInstance()
{
    return m_nExitCode;
}

CWnd* CWinThread::GetMainWnd()
{
    if (m_pMainWnd != nullptr) {
        return m_pMainWnd;
    }
    return AfxThreadState::Get().pModalDialog;
}

CWinThread* AfxGetThread()
{
    return AfxGetApp();
}

CWnd* AfxGetMainWnd()
{
    CWinThread* pThread = AfxGetThread();
    return pThread != nullptr ? pThread->GetMainWnd() : AfxThreadState::Get().pModalDialog;
}
