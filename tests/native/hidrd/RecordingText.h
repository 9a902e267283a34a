#pragma once
// A HID recording as the Linux HID tools write it (R:, N:, I: and timed E: lines), made by a test
// from a descriptor and reports of its own, so that replays are checked on recordings whose every
// report the test knows.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

class RecordingText {
public:
    RecordingText(const std::vector<std::uint8_t>& descriptor, const std::string& name, std::uint16_t vendor,
                  std::uint16_t product);

    RecordingText& report(std::int64_t timeUs, const std::vector<std::uint8_t>& bytes);
    const std::string& text() const { return m_text; }
    // Written to a file of this name in the temporary folder; answers its path.
    std::filesystem::path save(const std::string& fileName) const;

    // A descriptor of tests/data/hid-descriptors (the five shipped touchpads), by file name.
    static std::vector<std::uint8_t> shipped(const std::string& file);

private:
    std::string m_text;
};
