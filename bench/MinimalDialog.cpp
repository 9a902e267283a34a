// The yardstick of the start-up bench: a Win32 program that shows an empty dialog from a
// template and ends when it is closed, and nothing else.
#include <windows.h>

namespace {

INT_PTR CALLBACK dialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG) {
        return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int)
{
    return static_cast<int>(DialogBoxParamW(instance, MAKEINTRESOURCEW(1), nullptr, &dialogProc, 0));
}
