#include "OperatingSystemDetection.h"

#include <windows.h>

#include <memory>
#include <type_traits>

namespace ksx {

namespace {

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

// Windows PE marks itself with this key. A key that exists but may not be read still counts.
bool runsAsPreinstallation()
{
    HKEY raw = nullptr;
    const LSTATUS status =
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\MiniNT", 0, KEY_READ, &raw);
    const Key key(status == ERROR_SUCCESS ? raw : nullptr);
    return status == ERROR_SUCCESS || status == ERROR_ACCESS_DENIED;
}

}  // namespace

// RtlGetVersion, unlike GetVersionEx, is not capped at the version named in the manifest.
OperatingSystem detectOperatingSystem()
{
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    const FARPROC address = ntdll ? GetProcAddress(ntdll, "RtlGetVersion") : nullptr;
    OSVERSIONINFOEXW info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (!address ||
        reinterpret_cast<RtlGetVersionFunction>(reinterpret_cast<void (*)()>(address))(&info) != 0) {
        return OperatingSystem(OperatingSystem::DISTRIBUTION_UNKNOWN, OperatingSystem::MAJOR_UNKNOWN);
    }
    return OperatingSystem::fromVersion(info.dwMajorVersion, info.dwMinorVersion, info.dwBuildNumber,
                                        info.wProductType != VER_NT_WORKSTATION, runsAsPreinstallation());
}

}  // namespace ksx
