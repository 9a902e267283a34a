#include "ksx/DLLSearchPathRestriction.h"

#include <windows.h>

#include <string>

#include "ksx/Exception.h"

namespace ksx {

namespace {

[[noreturn]] void throwLastError(const char* call)
{
    const DWORD error = GetLastError();
    throw Exception(std::string("DLLSearchPathRestriction: ") + call + " failed with Win32 error " +
                    std::to_string(error));
}

}  // namespace

void DLLSearchPathRestriction::configure(Config config)
{
    DWORD directories = 0;
    switch (config) {
    case UNRESTRICTED:
        // Puts the current directory back into the search; LoadLibrary's default directory set,
        // once chosen for the process, stays.
        if (!SetDllDirectoryW(nullptr)) throwLastError("SetDllDirectoryW(NULL)");
        return;
    case APPLICATION_DIRECTORY:
        directories = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
        break;
    case SYSTEM_DIRECTORY_ONLY:
        directories = LOAD_LIBRARY_SEARCH_SYSTEM32;
        break;
    default:
        throw Exception("DLLSearchPathRestriction: unknown configuration " + std::to_string(config));
    }
    if (!SetDefaultDllDirectories(directories)) throwLastError("SetDefaultDllDirectories");
    // The empty text removes the current directory from the search as well.
    if (!SetDllDirectoryW(L"")) throwLastError("SetDllDirectoryW(\"\")");
}

}  // namespace ksx
