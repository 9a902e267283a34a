#pragma once
// Per-thread framework state: the handle maps, the message being handled, the window being
// created, the running modal dialogs and an exception waiting to be thrown again.
#include <exception>
#include <memory>
#include <unordered_map>

#include <windows.h>

class AfxCreationHook;
class CWnd;
class CDialog;

class AfxThreadState {
public:
    static AfxThreadState& Get();

    AfxThreadState();
    ~AfxThreadState();
    AfxThreadState(const AfxThreadState&) = delete;
    AfxThreadState& operator=(const AfxThreadState&) = delete;

    // Keeps the first exception caught at a window procedure and ends the innermost modal
    // dialog so that DoModal can throw it again.
    void StoreException(std::exception_ptr exception);
    // Throws the kept exception, if any, and forgets it.
    void RethrowPendingException();

    // Frees temporary wrappers; with onlyDead, only those whose window is gone.
    void DeleteTempWrappers(bool onlyDead);

    std::unordered_map<HWND, CWnd*> permanentMap;
    std::unordered_map<HWND, std::unique_ptr<CWnd>> tempMap;
    MSG currentMessage;         // the message the innermost AfxWndProc is handling
    CWnd* pWndInit;             // bound to the next window created on this thread
    AfxCreationHook* pCreationHook;  // the hook waiting for that window
    CDialog* pModalDialog;      // innermost running modal dialog
    int modalDepth;
    std::exception_ptr pendingException;
};
