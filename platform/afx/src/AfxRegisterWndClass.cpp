#include "afx/AfxRegisterWndClass.h"

#include <cwchar>
#include <set>
#include <string>

#include "afx/CWinApp.h"

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    // Names handed out stay valid for the life of the process.
    static std::set<std::wstring> names;

    HINSTANCE hInstance = AfxGetInstanceHandle();
    wchar_t name[128] = {};
    std::swprintf(name, 128, L"Afx:%p:%x:%p:%p:%p", static_cast<void*>(hInstance), nClassStyle,
                  static_cast<void*>(hCursor), static_cast<void*>(hbrBackground),
                  static_cast<void*>(hIcon));

    WNDCLASSEXW existing{};
    existing.cbSize = sizeof(existing);
    if (!::GetClassInfoExW(hInstance, name, &existing)) {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.style = nClassStyle;
        windowClass.lpfnWndProc = ::DefWindowProcW;
        windowClass.hInstance = hInstance;
        windowClass.hIcon = hIcon;
        windowClass.hCursor = hCursor;
        windowClass.hbrBackground = hbrBackground;
        windowClass.lpszClassName = name;
        if (::RegisterClassExW(&windowClass) == 0) {
            return nullptr;
        }
    }
    return names.insert(name).first->c_str();
}
