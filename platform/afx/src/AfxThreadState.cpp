#include "AfxThreadState.h"

#include "afx/CDialog.h"
#include "afx/CWnd.h"

AfxThreadState& AfxThreadState::Get()
{
    static thread_local AfxThreadState state;
    return state;
}

AfxThreadState::AfxThreadState()
    : currentMessage{}, pWndInit(nullptr), pCreationHook(nullptr), pModalDialog(nullptr), modalDepth(0)
{
}

AfxThreadState::~AfxThreadState()
{
    DeleteTempWrappers(false);
}

void AfxThreadState::StoreException(std::exception_ptr exception)
{
    if (!pendingException) {
        pendingException = exception;
    }
    if (pModalDialog != nullptr && pModalDialog->m_hWnd != nullptr) {
        ::EndDialog(pModalDialog->m_hWnd, -1);
    }
}

void AfxThreadState::RethrowPendingException()
{
    if (pendingException) {
        std::exception_ptr exception = pendingException;
        pendingException = nullptr;
        std::rethrow_exception(exception);
    }
}

void AfxThreadState::DeleteTempWrappers(bool onlyDead)
{
    for (auto it = tempMap.begin(); it != tempMap.end();) {
        if (onlyDead && ::IsWindow(it->first)) {
            ++it;
            continue;
        }
        // A temporary never owns its window: unbind before the destructor sees it.
        it->second->m_hWnd = nullptr;
        it = tempMap.erase(it);
    }
}
