// Tells an end-to-end test where a dialog's control is on the screen and how it looks, as a
// person would see it: kstrprobe TITLE-PREFIX CONTROL-ID [CONTROL-ID...]
// prints "x y width height enabled visible text" for each control asked for (screen coordinates),
// or exits 1 when there is no such window. The dialog is found among the top-level windows
// whose title begins with TITLE-PREFIX.
// kstrprobe --serve answers the same questions, one per line of standard input
// ("TITLE-PREFIX<TAB>ID ID..."), each answer ended by a line "."; "!" stands for a missing window.
// Starting a Wine process takes seconds, so a test keeps one server for all its questions.
// kstrprobe --unplug-pointer tells every raw-input receiver window that the machine's raw mice
// were removed, as the system does when a device is unplugged (no device can be unplugged here);
// it exits 1 when no receiver heard it.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <sstream>
#include <string>
#include <vector>

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

std::wstring wide(const std::string& text)
{
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    std::wstring out(size > 0 ? size - 1 : 0, L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, out.data(), size);
    return out;
}

// Writes the answer for the controls `ids` of the window whose title begins with `prefix`;
// false when there is no such window.
bool describe(const wchar_t* prefix, const std::vector<int>& ids)
{
    Search search{prefix, nullptr};
    EnumWindows(&matchTitle, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) {
        return false;
    }
    // One line per control asked for, in order; "-" for a control the dialog does not have.
    for (const int id : ids) {
        HWND control = id == 0 ? search.found : GetDlgItem(search.found, id);
        if (control == nullptr) {
            std::puts("-");
            continue;
        }
        RECT rect{};
        GetWindowRect(control, &rect);
        wchar_t text[512] = {};
        GetWindowTextW(control, text, 512);
        // One answer is one line: the lines of a multi-line text are joined by blanks.
        for (wchar_t* c = text; *c != L'\0'; ++c) {
            *c = (*c == L'\r' || *c == L'\n') ? L' ' : *c;
        }
        std::printf("%ld %ld %ld %ld %d %d %s\n", rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, IsWindowEnabled(control) ? 1 : 0, IsWindowVisible(control) ? 1 : 0,
                    utf8(text).c_str());
    }
    return true;
}

int serve()
{
    char line[4096];
    while (std::fgets(line, sizeof(line), stdin) != nullptr) {
        std::string request(line);
        while (!request.empty() && (request.back() == '\n' || request.back() == '\r')) {
            request.pop_back();
        }
        const std::size_t tab = request.find('\t');
        std::vector<int> ids;
        std::istringstream numbers(tab == std::string::npos ? std::string() : request.substr(tab + 1));
        for (int id = 0; numbers >> id;) {
            ids.push_back(id);
        }
        if (!describe(wide(request.substr(0, tab)).c_str(), ids)) {
            std::puts("!");
        }
        std::puts(".");
        std::fflush(stdout);
    }
    return 0;
}

int unplugPointer()
{
    UINT count = 0;
    GetRawInputDeviceList(nullptr, &count, sizeof(RAWINPUTDEVICELIST));
    std::vector<RAWINPUTDEVICELIST> devices(count);
    count = GetRawInputDeviceList(devices.data(), &count, sizeof(RAWINPUTDEVICELIST));
    int told = 0;
    for (HWND receiver = nullptr;
         (receiver = FindWindowExW(HWND_MESSAGE, receiver, L"rawkitReceiver", nullptr)) != nullptr;) {
        for (UINT i = 0; i < count && i < devices.size(); ++i) {
            if (devices[i].dwType == RIM_TYPEMOUSE) {
                SendMessageW(receiver, WM_INPUT_DEVICE_CHANGE, GIDC_REMOVAL,
                             reinterpret_cast<LPARAM>(devices[i].hDevice));
                ++told;
            }
        }
    }
    std::printf("%d\n", told);
    return told > 0 ? 0 : 1;
}

}  // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc == 2 && std::wcscmp(argv[1], L"--unplug-pointer") == 0) {
        return unplugPointer();
    }
    if (argc == 2 && std::wcscmp(argv[1], L"--serve") == 0) {
        return serve();
    }
    if (argc < 3) {
        std::fputs("usage: kstrprobe TITLE-PREFIX CONTROL-ID [CONTROL-ID...] | kstrprobe --serve\n", stderr);
        return 2;
    }
    std::vector<int> ids;
    for (int i = 2; i < argc; ++i) {
        ids.push_back(_wtoi(argv[i]));
    }
    return describe(argv[1], ids) ? 0 : 1;
}
