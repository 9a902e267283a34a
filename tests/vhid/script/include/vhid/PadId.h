#pragma once
// A virtual touchpad is known by its vendor and product ids, as a real device is.
#include <cstdint>
#include <optional>
#include <string>

namespace vhid {

struct PadId {
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;

    // "06CB:CE08", four hex digits each; nothing for anything else.
    static std::optional<PadId> parse(const std::string& text);
    std::string text() const;                 // "06CB:CE08"
    std::wstring instanceId() const;          // "ROOT\VID_06CB&PID_CE08\0000"
    std::wstring pathPart() const;            // "VID_06CB&PID_CE08", as the interface path has it
};

}  // namespace vhid
