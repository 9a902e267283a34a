#include "PadChannel.h"

#include <windows.h>
#include <winioctl.h>

#include "../driver/VhidControl.h"
#include "Win32Error.h"

namespace {

constexpr int kOpenTries = 20;   // a driver started a moment ago may not have its link yet
constexpr DWORD kOpenPauseMs = 25;

}  // namespace

std::unique_ptr<PadChannel> PadChannel::open(std::string& error)
{
    for (int attempt = 0; attempt < kOpenTries; ++attempt) {
        HANDLE handle = CreateFileW(VHID_CONTROL_PATH, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            return std::unique_ptr<PadChannel>(new PadChannel(handle));
        }
        Sleep(kOpenPauseMs);
    }
    error = "the virtual touchpad's driver is not running in this Wine session (no pad started): " +
            win32Error(GetLastError());
    return nullptr;
}

PadChannel::~PadChannel()
{
    CloseHandle(m_handle);
}

bool PadChannel::send(const vhid::PadId& id, const std::vector<std::uint8_t>& report, bool feature, bool& busy,
                      std::string& error)
{
    busy = false;
    std::vector<std::uint8_t> request(sizeof(VHID_REPORT_HEADER));
    const VHID_REPORT_HEADER header{id.vendorId, id.productId};
    memcpy(request.data(), &header, sizeof(header));
    request.insert(request.end(), report.begin(), report.end());
    DWORD returned = 0;
    if (DeviceIoControl(m_handle, feature ? VHID_IOCTL_FEATURE : VHID_IOCTL_INPUT, request.data(),
                        static_cast<DWORD>(request.size()), nullptr, 0, &returned, nullptr)) {
        return true;
    }
    const DWORD code = GetLastError();
    if (code == ERROR_BUSY) {
        busy = true;
        error = "the driver's queue is full: the system is not reading the device";
    } else if (code == ERROR_FILE_NOT_FOUND || code == ERROR_DEV_NOT_EXIST || code == ERROR_BAD_UNIT) {
        error = "the virtual touchpad " + id.text() + " is not running (removed, or not started)";
    } else {
        error = "the driver refused the report: " + win32Error(code);
    }
    return false;
}
