#include "RawInputPads.h"

#include <windows.h>

#include <string>
#include <vector>

namespace {

constexpr DWORD kPollMs = 10;

std::wstring upper(std::wstring text)
{
    for (wchar_t& c : text) {
        c = static_cast<wchar_t>(towupper(c));
    }
    return text;
}

}  // namespace

bool RawInputPads::present(const vhid::PadId& id)
{
    UINT count = 0;
    if (GetRawInputDeviceList(nullptr, &count, sizeof(RAWINPUTDEVICELIST)) != 0) {
        return false;
    }
    std::vector<RAWINPUTDEVICELIST> devices(count);
    count = GetRawInputDeviceList(devices.data(), &count, sizeof(RAWINPUTDEVICELIST));
    if (count == static_cast<UINT>(-1)) {
        return false;
    }
    const std::wstring wanted = upper(id.pathPart());
    for (UINT i = 0; i < count; ++i) {
        wchar_t name[512] = {};
        UINT size = 512;
        if (devices[i].dwType == RIM_TYPEHID &&
            GetRawInputDeviceInfoW(devices[i].hDevice, RIDI_DEVICENAME, name, &size) != static_cast<UINT>(-1) &&
            upper(name).find(L"#" + wanted + L"#") != std::wstring::npos) {
            return true;
        }
    }
    return false;
}

bool RawInputPads::waitFor(const vhid::PadId& id, bool wanted, unsigned timeoutMs)
{
    const ULONGLONG deadline = GetTickCount64() + timeoutMs;
    while (present(id) != wanted) {
        if (GetTickCount64() >= deadline) {
            return false;
        }
        Sleep(kPollMs);
    }
    return true;
}
