// The wide WinMain of an executable built on the framework. Linked into the executable itself
// (the afx_entry object library), since the runtime's wmain looks for it there.
#include <windows.h>

#include "afx/AfxWinMain.h"

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR lpCmdLine, int nCmdShow)
{
    return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
