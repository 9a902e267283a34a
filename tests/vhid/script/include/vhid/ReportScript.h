#pragma once
// A file of timed reports for the virtual device: a HID recording as the Linux HID tools write it
// (`R:` descriptor, `I:` bus, vendor and product, `E:` input reports with their times), and lines
// of our own, `F: <sec>.<usec> <n> <bytes>`, feature reports set at their time (other readers of
// the format skip lines they do not know). A file without records is a descriptor in hex.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vhid {

struct TimedReport {
    std::int64_t micros = 0;   // since the first report
    bool feature = false;
    std::vector<std::uint8_t> bytes;
    int line = 0;              // where the file has it
};

struct ReportScript {
    std::vector<std::uint8_t> descriptor;   // empty when the file gives none
    std::optional<std::uint16_t> vendorId;
    std::optional<std::uint16_t> productId;
    std::vector<TimedReport> reports;

    // Nothing, with the line and why, for a file that does not read; a recording of several
    // devices is refused (the virtual device is one).
    static std::optional<ReportScript> parse(std::string_view text, std::string& error);
};

}  // namespace vhid
