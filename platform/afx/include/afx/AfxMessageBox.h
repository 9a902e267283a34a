#pragma once
// A message box titled with the application's name.
#include <windows.h>

// MessageBox with AfxGetAppName() as title, owned by the thread's main window (or its
// running modal dialog); nIDHelp is the box's context help id. Returns the button pressed.
int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
