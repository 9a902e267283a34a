#include "PadInstaller.h"

#include <windows.h>
#include <winioctl.h>

#include <cfgmgr32.h>

#include <memory>
#include <newdev.h>
#include <setupapi.h>

#include "../driver/VhidControl.h"
#include "Win32Error.h"

namespace {

// The HID class, as the INF names it.
constexpr GUID kHidClass = {0x745a17a0, 0x74d3, 0x11d0, {0xb6, 0xfe, 0x00, 0xa0, 0xc9, 0x0f, 0x57, 0xda}};

struct DeviceSetCloser {
    void operator()(HDEVINFO set) const { SetupDiDestroyDeviceInfoList(set); }
};
using DeviceSet = std::unique_ptr<std::remove_pointer_t<HDEVINFO>, DeviceSetCloser>;

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

DeviceSet rootDevices()
{
    HDEVINFO set = SetupDiGetClassDevsW(nullptr, L"ROOT", nullptr, DIGCF_ALLCLASSES);
    return DeviceSet(set == INVALID_HANDLE_VALUE ? nullptr : set);
}

std::wstring instanceId(HDEVINFO set, SP_DEVINFO_DATA& info)
{
    wchar_t id[MAX_DEVICE_ID_LEN];
    return SetupDiGetDeviceInstanceIdW(set, &info, id, MAX_DEVICE_ID_LEN, nullptr) ? id : L"";
}

std::wstring hardwareId(HDEVINFO set, SP_DEVINFO_DATA& info)
{
    wchar_t ids[256] = {};
    return SetupDiGetDeviceRegistryPropertyW(set, &info, SPDRP_HARDWAREID, nullptr, reinterpret_cast<BYTE*>(ids),
                                             sizeof(ids) - sizeof(wchar_t), nullptr)
               ? ids
               : L"";
}

// Finds the pad's device in the set; false when the prefix has none.
bool find(HDEVINFO set, const vhid::PadId& id, SP_DEVINFO_DATA& info)
{
    info.cbSize = sizeof(info);
    for (DWORD i = 0; SetupDiEnumDeviceInfo(set, i, &info); ++i) {
        if (_wcsicmp(instanceId(set, info).c_str(), id.instanceId().c_str()) == 0) {
            return true;
        }
    }
    return false;
}

bool writeValue(HKEY key, const wchar_t* name, DWORD type, const void* data, DWORD size)
{
    return RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

// The descriptor and ids the driver reads when it adds the device.
bool writeSettings(HDEVINFO set, SP_DEVINFO_DATA& info, const vhid::PadId& id,
                   const std::vector<std::uint8_t>& descriptor)
{
    HKEY raw = SetupDiCreateDevRegKeyW(set, &info, DICS_FLAG_GLOBAL, 0, DIREG_DEV, nullptr, nullptr);
    if (raw == INVALID_HANDLE_VALUE) {
        return false;
    }
    const Key key(raw);
    const DWORD vendor = id.vendorId;
    const DWORD product = id.productId;
    return writeValue(key.get(), VHID_VALUE_DESCRIPTOR, REG_BINARY, descriptor.data(),
                      static_cast<DWORD>(descriptor.size())) &&
           writeValue(key.get(), VHID_VALUE_VENDOR, REG_DWORD, &vendor, sizeof(vendor)) &&
           writeValue(key.get(), VHID_VALUE_PRODUCT, REG_DWORD, &product, sizeof(product));
}

// The driver of the INF installed on this one device (the others stay as they are).
bool installDriver(HDEVINFO set, SP_DEVINFO_DATA& info, const std::wstring& inf)
{
    SP_DEVINSTALL_PARAMS_W params{};
    params.cbSize = sizeof(params);
    if (!SetupDiGetDeviceInstallParamsW(set, &info, &params) || inf.size() >= MAX_PATH) {
        return false;
    }
    params.Flags |= DI_ENUMSINGLEINF;
    wcscpy(params.DriverPath, inf.c_str());
    return SetupDiSetDeviceInstallParamsW(set, &info, &params) &&
           SetupDiBuildDriverInfoList(set, &info, SPDIT_COMPATDRIVER) &&
           SetupDiCallClassInstaller(DIF_SELECTBESTCOMPATDRV, set, &info) &&
           SetupDiCallClassInstaller(DIF_INSTALLDEVICE, set, &info);
}

}  // namespace

std::vector<vhid::PadId> PadInstaller::installed()
{
    std::vector<vhid::PadId> pads;
    const DeviceSet set = rootDevices();
    if (!set) {
        return pads;
    }
    SP_DEVINFO_DATA info{};
    info.cbSize = sizeof(info);
    for (DWORD i = 0; SetupDiEnumDeviceInfo(set.get(), i, &info); ++i) {
        unsigned vendor = 0;
        unsigned product = 0;
        if (_wcsicmp(hardwareId(set.get(), info).c_str(), VHID_HARDWARE_ID) == 0 &&
            swscanf(instanceId(set.get(), info).c_str(), L"ROOT\\VID_%4x&PID_%4x", &vendor, &product) == 2) {
            pads.push_back({static_cast<std::uint16_t>(vendor), static_cast<std::uint16_t>(product)});
        }
    }
    return pads;
}

bool PadInstaller::install(const vhid::PadId& id, const std::vector<std::uint8_t>& descriptor,
                           const std::wstring& inf, std::string& error)
{
    const DeviceSet existing = rootDevices();
    SP_DEVINFO_DATA info{};
    if (existing && find(existing.get(), id, info)) {
        error = "a virtual touchpad " + id.text() + " is already installed; remove it first";
        return false;
    }
    const DeviceSet set(SetupDiCreateDeviceInfoList(&kHidClass, nullptr));
    info.cbSize = sizeof(info);
    if (!set || !SetupDiCreateDeviceInfoW(set.get(), id.instanceId().c_str(), &kHidClass,
                                          L"Virtual touchpad (tests only)", nullptr, 0, &info)) {
        error = "the device cannot be created: " + win32Error(GetLastError());
        return false;
    }
    const std::wstring hardwareIds = std::wstring(VHID_HARDWARE_ID) + L'\0';
    if (!SetupDiSetDeviceRegistryPropertyW(set.get(), &info, SPDRP_HARDWAREID,
                                           reinterpret_cast<const BYTE*>(hardwareIds.c_str()),
                                           static_cast<DWORD>((hardwareIds.size() + 1) * sizeof(wchar_t))) ||
        !SetupDiCallClassInstaller(DIF_REGISTERDEVICE, set.get(), &info)) {
        error = "the device cannot be registered: " + win32Error(GetLastError());
        return false;
    }
    // From here on a failure takes the registered device away again.
    if (!writeSettings(set.get(), info, id, descriptor)) {
        error = "the device's settings cannot be written: " + win32Error(GetLastError());
    } else if (!installDriver(set.get(), info, inf)) {
        error = "the driver cannot be installed from " + std::string(inf.begin(), inf.end()) + ": " +
                win32Error(GetLastError());
    } else {
        return true;
    }
    SetupDiRemoveDevice(set.get(), &info);
    return false;
}

bool PadInstaller::remove(const vhid::PadId& id, std::string& error)
{
    const DeviceSet set = rootDevices();
    SP_DEVINFO_DATA info{};
    if (!set || !find(set.get(), id, info)) {
        error = "no virtual touchpad " + id.text() + " is installed";
        return false;
    }
    if (!SetupDiRemoveDevice(set.get(), &info)) {
        error = "the device cannot be removed: " + win32Error(GetLastError());
        return false;
    }
    return true;
}

std::optional<std::vector<std::uint8_t>> PadInstaller::descriptor(const vhid::PadId& id, std::string& error)
{
    const DeviceSet set = rootDevices();
    SP_DEVINFO_DATA info{};
    if (!set || !find(set.get(), id, info)) {
        error = "no virtual touchpad " + id.text() + " is installed";
        return std::nullopt;
    }
    HKEY raw = SetupDiOpenDevRegKey(set.get(), &info, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ);
    if (raw == INVALID_HANDLE_VALUE) {
        error = "the device's settings cannot be read: " + win32Error(GetLastError());
        return std::nullopt;
    }
    const Key key(raw);
    std::vector<std::uint8_t> bytes(VHID_MAX_DESCRIPTOR);
    DWORD size = static_cast<DWORD>(bytes.size());
    if (RegQueryValueExW(key.get(), VHID_VALUE_DESCRIPTOR, nullptr, nullptr, bytes.data(), &size) != ERROR_SUCCESS) {
        error = "the device's key has no descriptor";
        return std::nullopt;
    }
    bytes.resize(size);
    return bytes;
}
