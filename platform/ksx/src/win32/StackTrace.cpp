#include "StackTrace.h"

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <string>

namespace ksx {

namespace {

// The file name, without folder, of the module that contains `address`; empty when none does.
std::u16string moduleNameOf(const void* address, std::uintptr_t& base)
{
    HMODULE module = nullptr;
    // A null address would name the executable itself.
    if (!address ||
        !GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<LPCWSTR>(address), &module)) {
        return {};
    }
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    if (length == 0) return {};
    std::u16string name(reinterpret_cast<const char16_t*>(path), length);
    name.erase(0, name.find_last_of(u"\\/") + 1);
    base = reinterpret_cast<std::uintptr_t>(module);
    return name;
}

}  // namespace

String captureStackTrace(unsigned int skipFrames)
{
    void* frames[62];   // the most RtlCaptureStackBackTrace takes on older systems
    // Frame 0 is this function.
    const USHORT count = RtlCaptureStackBackTrace(1 + skipFrames, 62, frames, nullptr);
    String text;
    // Past the thread's start some unwinders (Wine's) report null frames: the stack ends there.
    for (USHORT i = 0; i < count && frames[i]; ++i) {
        std::uintptr_t base = 0;
        const std::u16string module = moduleNameOf(frames[i], base);
        char offset[40];
        if (module.empty()) {
            std::snprintf(offset, sizeof offset, "0x%llx\n",
                          static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(frames[i])));
        } else {
            text += String(module);
            std::snprintf(offset, sizeof offset, "+0x%llx\n",
                          static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(frames[i]) - base));
        }
        text.append(offset);
    }
    return text;
}

}  // namespace ksx
