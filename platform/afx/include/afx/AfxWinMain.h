#pragma once
// The framework's main routine, called by the wide WinMain entry (appmodul.cpp).
#include <windows.h>

// Records the instance, command line and show state in the application object and
// prepares the common controls. FALSE when there is no application object.
BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow);

// AfxWinInit, then InitInstance. When InitInstance answers FALSE, the result is ExitInstance()'s:
// the exit code InitInstance set, else -1 (Run is not called). Otherwise the result is Run()'s.
// Without an application object the result is -1.
int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow);
