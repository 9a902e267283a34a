#pragma once
// The host user interface's window.
#include <afxwin.h>

// The host's window (harn5::HostContext::hostWindow) while it is a live window, else null.
CWnd* KstrGetCUIHandle();
