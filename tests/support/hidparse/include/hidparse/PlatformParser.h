#pragma once
// The platform's HID descriptor parser run on a descriptor, as the HID class driver runs it on a
// device's: without a touchpad on the machine, Wine's own parser (hidparse.sys) is loaded into
// the test process; on Windows the same module answers.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hidparse {

struct ReportLengths {
    std::uint16_t input = 0;     // bytes with the report id; 0: no such report
    std::uint16_t output = 0;
    std::uint16_t feature = 0;
};

struct Description {
    std::uint16_t usagePage = 0;            // of the first top-level collection
    std::uint16_t usage = 0;
    std::vector<std::uint8_t> preparsed;    // of the first top-level collection
    std::map<std::uint8_t, ReportLengths> reports;
};

class PlatformParser {
public:
    // Nothing, with why, when the parser cannot be loaded or refuses the descriptor.
    static std::optional<Description> describe(const std::vector<std::uint8_t>& descriptor, std::string& why);
};

}  // namespace hidparse
