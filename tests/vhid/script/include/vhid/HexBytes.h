#pragma once
// Bytes written as hexadecimal, two digits each, with or without blanks between them.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vhid {

class HexBytes {
public:
    // Nothing, with why, for a text with anything else in it or an odd digit out.
    static std::optional<std::vector<std::uint8_t>> parse(std::string_view text, std::string& error);
    // Two lowercase digits a byte, one blank between bytes.
    static std::string format(const std::vector<std::uint8_t>& bytes);
};

}  // namespace vhid
