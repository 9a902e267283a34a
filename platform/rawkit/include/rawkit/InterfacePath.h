#pragma once
// What a device interface path such as "\\?\HID#VID_045E&PID_0823&MI_01#7&2a&0&0000#{378de44c-...}"
// tells: the hardware id ("HID\VID_045E&PID_0823&MI_01") and the vendor and product numbers.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rawkit {

class InterfacePath {
public:
    // The enumerator and device id before the instance part, joined with '\'; the path itself
    // when it has no such parts.
    static std::string hardwareId(std::string_view path);
    // The four hex digits after "VID_" (or "PID_"), in any case; none when absent or malformed.
    static std::optional<std::uint16_t> vendorId(std::string_view path);
    static std::optional<std::uint16_t> productId(std::string_view path);
    // "045E:0823", or empty when either number is missing.
    static std::string vidPid(std::string_view path);
    // Paths and hardware ids compare ignoring case: in upper case (ASCII).
    static std::string upper(std::string_view text);
};

}  // namespace rawkit
