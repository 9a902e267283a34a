#include "RawInputPads.h"

#include <windows.h>

#include <setupapi.h>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPollMs = 10;
// The HID device interface class.
constexpr GUID kHidInterface = {0x4d1e55b2, 0xf16f, 0x11cf, {0x88, 0xcb, 0x00, 0x11, 0x11, 0x00, 0x00, 0x30}};

struct DeviceSetCloser {
    void operator()(HDEVINFO set) const { SetupDiDestroyDeviceInfoList(set); }
};

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

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

std::wstring RawInputPads::interfacePath(const vhid::PadId& id)
{
    HDEVINFO raw = SetupDiGetClassDevsW(&kHidInterface, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    if (raw == INVALID_HANDLE_VALUE) {
        return L"";
    }
    const std::unique_ptr<std::remove_pointer_t<HDEVINFO>, DeviceSetCloser> set(raw);
    const std::wstring wanted = L"#" + upper(id.pathPart()) + L"#";
    SP_DEVICE_INTERFACE_DATA interface{};
    interface.cbSize = sizeof(interface);
    for (DWORD i = 0; SetupDiEnumDeviceInterfaces(set.get(), nullptr, &kHidInterface, i, &interface); ++i) {
        std::vector<std::uint64_t> buffer(128);
        auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer.data());
        detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
        if (!SetupDiGetDeviceInterfaceDetailW(set.get(), &interface, detail,
                                              static_cast<DWORD>(buffer.size() * sizeof(std::uint64_t)), nullptr,
                                              nullptr) ||
            upper(detail->DevicePath).find(wanted) == std::wstring::npos) {
            continue;
        }
        HANDLE handle = CreateFileW(detail->DevicePath, 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    0, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            const std::unique_ptr<void, HandleCloser> opened(handle);
            return detail->DevicePath;
        }
    }
    return L"";
}

bool RawInputPads::waitFor(const vhid::PadId& id, bool wanted, unsigned timeoutMs)
{
    const ULONGLONG deadline = GetTickCount64() + timeoutMs;
    while (wanted && interfacePath(id).empty()) {
        if (GetTickCount64() >= deadline) {
            return false;
        }
        Sleep(kPollMs);
    }
    while (present(id) != wanted) {
        if (GetTickCount64() >= deadline) {
            return false;
        }
        Sleep(kPollMs);
    }
    return true;
}
