#include "rawkit/RawInputDevices.h"

#include <windows.h>
extern "C" {
#include <hidsdi.h>
}

#include "rawkit/HidTouchDecoder.h"
#include "rawkit/HidUsages.h"
#include "rawkit/InterfacePath.h"

namespace rawkit {

namespace {

std::string utf8(const std::wstring& text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), nullptr, 0,
                                         nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size > 0 ? size : 0), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), out.data(), size, nullptr, nullptr);
    return out;
}

HANDLE asHandle(std::uintptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

// Fills what the system says of one device; false when it is gone or not a pointer.
bool describe(const RAWINPUTDEVICELIST& entry, DeviceInfo& device)
{
    RID_DEVICE_INFO info{};
    info.cbSize = sizeof(info);
    UINT size = sizeof(info);
    if (GetRawInputDeviceInfoW(entry.hDevice, RIDI_DEVICEINFO, &info, &size) == static_cast<UINT>(-1)) {
        return false;
    }
    device.handle = reinterpret_cast<std::uintptr_t>(entry.hDevice);
    if (info.dwType == RIM_TYPEMOUSE) {
        device.rawMouse = true;
        device.buttons = info.mouse.dwNumberOfButtons;
        device.sampleRate = info.mouse.dwSampleRate;
        device.horizontalWheel = info.mouse.fHasHorizontalWheel != FALSE;
        return true;
    }
    if (info.dwType != RIM_TYPEHID || !isPointingCollection(info.hid.usUsagePage, info.hid.usUsage)) {
        return false;
    }
    device.usagePage = info.hid.usUsagePage;
    device.usage = info.hid.usUsage;
    const std::vector<std::uint8_t> preparsed = RawInputDevices::preparsedData(device.handle);
    HIDP_CAPS caps{};
    if (!preparsed.empty() &&
        HidP_GetCaps(reinterpret_cast<PHIDP_PREPARSED_DATA>(const_cast<std::uint8_t*>(preparsed.data())), &caps) ==
            HIDP_STATUS_SUCCESS) {
        std::vector<HIDP_BUTTON_CAPS> buttons(caps.NumberInputButtonCaps);
        USHORT count = caps.NumberInputButtonCaps;
        if (count > 0 && HidP_GetSpecificButtonCaps(
                             HidP_Input, hid::kButtonPage, 0, 0, buttons.data(), &count,
                             reinterpret_cast<PHIDP_PREPARSED_DATA>(const_cast<std::uint8_t*>(preparsed.data()))) ==
                             HIDP_STATUS_SUCCESS) {
            for (USHORT i = 0; i < count; ++i) {
                const HIDP_BUTTON_CAPS& button = buttons[i];
                device.buttons += button.IsRange ? button.Range.UsageMax - button.Range.UsageMin + 1U : 1U;
            }
        }
    }
    return true;
}

}  // namespace

std::vector<DeviceInfo> RawInputDevices::enumerate(const KnownSticks& sticks)
{
    std::vector<RAWINPUTDEVICELIST> list;
    UINT count = 0;
    // The list can grow between the two calls: ask again until it fits.
    for (int attempt = 0; attempt < 4; ++attempt) {
        if (GetRawInputDeviceList(nullptr, &count, sizeof(RAWINPUTDEVICELIST)) != 0) {
            return {};
        }
        list.resize(count);
        const UINT got = GetRawInputDeviceList(list.data(), &count, sizeof(RAWINPUTDEVICELIST));
        if (got != static_cast<UINT>(-1)) {
            list.resize(got);
            break;
        }
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) {
            return {};
        }
    }
    std::vector<DeviceInfo> devices;
    for (const RAWINPUTDEVICELIST& entry : list) {
        DeviceInfo device;
        if (entry.dwType == RIM_TYPEKEYBOARD || !describe(entry, device)) {
            continue;
        }
        device.path = interfacePath(device.handle);
        device.hardwareId = InterfacePath::hardwareId(device.path);
        device.vid = InterfacePath::vendorId(device.path);
        device.pid = InterfacePath::productId(device.path);
        device.kind = kindOf(device, sticks);
        if (device.kind == DeviceKind::Touchpad) {
            const auto decoder = HidTouchDecoder::create(preparsedData(device.handle), device.problem);
            if (decoder) {
                device.touch = decoder->layout();
            } else if (device.problem.empty()) {
                device.problem = "its reports cannot be read";
            }
        }
        devices.push_back(std::move(device));
    }
    return devices;
}

std::optional<DeviceInfo> RawInputDevices::find(const std::string& path)
{
    const std::string wanted = InterfacePath::upper(path);
    for (DeviceInfo& device : enumerate({})) {
        if (InterfacePath::upper(device.path) == wanted) {
            return device;
        }
    }
    return std::nullopt;
}

std::string RawInputDevices::interfacePath(std::uintptr_t handle)
{
    UINT length = 0;
    if (GetRawInputDeviceInfoW(asHandle(handle), RIDI_DEVICENAME, nullptr, &length) != 0 || length == 0) {
        return {};
    }
    std::wstring name(length, L'\0');
    const UINT copied = GetRawInputDeviceInfoW(asHandle(handle), RIDI_DEVICENAME, name.data(), &length);
    if (copied == static_cast<UINT>(-1)) {
        return {};
    }
    name.resize(wcsnlen(name.c_str(), name.size()));
    return utf8(name);
}

std::vector<std::uint8_t> RawInputDevices::preparsedData(std::uintptr_t handle)
{
    UINT size = 0;
    if (GetRawInputDeviceInfoW(asHandle(handle), RIDI_PREPARSEDDATA, nullptr, &size) != 0 || size == 0) {
        return {};
    }
    std::vector<std::uint8_t> data(size);
    if (GetRawInputDeviceInfoW(asHandle(handle), RIDI_PREPARSEDDATA, data.data(), &size) == static_cast<UINT>(-1)) {
        return {};
    }
    return data;
}

}  // namespace rawkit
