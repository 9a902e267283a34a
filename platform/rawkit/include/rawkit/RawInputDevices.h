#pragma once
// The machine's pointing devices as Raw Input lists them: every relative mouse and every HID
// pointer (digitizers and generic pointers), in the order the system gives them.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "rawkit/DeviceInfo.h"
#include "rawkit/KnownSticks.h"

namespace rawkit {

class RawInputDevices {
public:
    static std::vector<DeviceInfo> enumerate(const KnownSticks& sticks);
    // The attached pointing device with this interface path (ignoring case); none when absent.
    static std::optional<DeviceInfo> find(const std::string& path);
    // The interface path of an attached device; empty when the handle names none.
    static std::string interfacePath(std::uintptr_t handle);
    // The device's HID preparsed data; empty when it has none or is gone.
    static std::vector<std::uint8_t> preparsedData(std::uintptr_t handle);
};

}  // namespace rawkit
