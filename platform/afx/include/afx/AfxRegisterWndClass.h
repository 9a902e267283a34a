#pragma once
// Window classes registered on demand.
#include <windows.h>

// Registers (once per combination) a window class with these attributes and the default
// window procedure, and returns its generated name: the same name for the same arguments,
// valid until the process ends. Null when the class cannot be registered.
LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                            HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
