#include "Win32Error.h"

#include <windows.h>

std::string win32Error(unsigned long code)
{
    char text[512] = {};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        text, sizeof(text), nullptr);
    std::string message(text, length);
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r' || message.back() == '.')) {
        message.pop_back();
    }
    return (message.empty() ? "error" : message) + " (" + std::to_string(code) + ")";
}
