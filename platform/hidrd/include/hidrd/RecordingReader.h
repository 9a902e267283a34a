#pragma once
// Reads a HID recording as the Linux HID tools write it (hid-recorder's text: each device's R:
// descriptor, N: name, P: path and I: bus, vendor and product, then its E: reports with their
// times; D: lines tell the devices of a recording of several apart), a line at a time: the
// devices when it is made, then one report a call, so that a recording of any length takes the
// memory of one line. Anything it cannot read is a RecordingError naming the file and line.
#include <cstddef>
#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hidrd/LineReader.h"

namespace hidrd {

struct RecordedDevice {
    unsigned index = 0;                     // its D: number; 0 in a recording of one device
    std::string name;                       // N:
    std::string physicalPath;               // P:
    std::optional<std::uint16_t> bus;       // I:
    std::optional<std::uint16_t> vendor;
    std::optional<std::uint16_t> product;
    std::vector<std::uint8_t> descriptor;   // R:
    std::size_t descriptorLine = 0;         // 0: the device has no R: line
};

struct RecordedReport {
    std::int64_t timeUs = 0;                // since the recording's first report
    unsigned device = 0;                    // its device's index
    std::size_t line = 0;
    std::vector<std::uint8_t> bytes;        // as the device sent it, its report id first
};

class RecordingReader {
public:
    static constexpr std::size_t kMaxLine = 1024 * 1024;

    // Reads the devices: every line up to the first report. source names the file in messages.
    RecordingReader(std::istream& in, std::string source);

    const std::vector<RecordedDevice>& devices() const { return m_devices; }
    // The next report of any device; false at the end of the recording.
    bool next(RecordedReport& report);

    const std::string& source() const { return m_source; }
    // Whether a file's first line that is not blank or a comment begins a HID recording.
    static bool begins(std::string_view line);

private:
    // The next line that says something, trimmed; false at the end.
    bool nextLine(std::string_view& line);
    [[noreturn]] void fail(const std::string& what) const;
    RecordedDevice& device(unsigned index);
    void header(char type, std::string_view value);
    void report(std::string_view value, RecordedReport& into);
    void hexBytes(char type, std::string_view text, std::vector<std::uint8_t>& into) const;
    void select(std::string_view value);

    LineReader m_lines;
    std::string m_source;
    std::vector<RecordedDevice> m_devices;
    unsigned m_current = 0;                 // the device of the last D: line
    bool m_inReports = false;
    std::optional<RecordedReport> m_first;  // read with the header, given by the first next()
    std::int64_t m_lastTimeUs = 0;
};

}  // namespace hidrd
