// Tells an end-to-end test where a dialog's control is on the screen and how it looks, as a
// person would see it: kstrprobe TITLE-PREFIX CONTROL-ID
// prints "x y width height enabled visible text" for the control (screen coordinates), or exits 1
// when there is no such window or control. The dialog is found among the top-level windows
// whose title begins with TITLE-PREFIX.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

struct Search {
    const wchar_t* prefix;
    HWND found;
};

BOOL CALLBACK matchTitle(HWND window, LPARAM param)
{
    auto* search = reinterpret_cast<Search*>(param);
    wchar_t title[256] = {};
    GetWindowTextW(window, title, 256);
    if (IsWindowVisible(window) && std::wcsncmp(title, search->prefix, std::wcslen(search->prefix)) == 0) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

std::string utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(size > 0 ? size - 1 : 0, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    return out;
}

}  // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3) {
        std::fputs("usage: kstrprobe TITLE-PREFIX CONTROL-ID\n", stderr);
        return 2;
    }
    Search search{argv[1], nullptr};
    EnumWindows(&matchTitle, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) {
        return 1;
    }
    const int id = _wtoi(argv[2]);
    HWND control = id == 0 ? search.found : GetDlgItem(search.found, id);
    if (control == nullptr) {
        return 1;
    }
    RECT rect{};
    GetWindowRect(control, &rect);
    wchar_t text[512] = {};
    GetWindowTextW(control, text, 512);
    std::printf("%ld %ld %ld %ld %d %d %s\n", rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                IsWindowEnabled(control) ? 1 : 0, IsWindowVisible(control) ? 1 : 0, utf8(text).c_str());
    return 0;
}
