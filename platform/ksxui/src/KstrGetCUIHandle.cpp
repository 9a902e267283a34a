#include "ksxui/KstrGetCUIHandle.h"

#include "harn5/HostContext.h"

CWnd* KstrGetCUIHandle()
{
    HWND hWnd = reinterpret_cast<HWND>(harn5::HostContext::hostWindow());
    if (hWnd == nullptr || !::IsWindow(hWnd)) {
        return nullptr;
    }
    return CWnd::FromHandle(hWnd);
}
