#include "RecordingText.h"

#include <cstdio>
#include <fstream>

namespace {

std::string hexBytes(const std::vector<std::uint8_t>& bytes)
{
    std::string text;
    char byte[4];
    for (const std::uint8_t b : bytes) {
        std::snprintf(byte, sizeof byte, " %02x", b);
        text += byte;
    }
    return text;
}

}  // namespace

RecordingText::RecordingText(const std::vector<std::uint8_t>& descriptor, const std::string& name,
                             std::uint16_t vendor, std::uint16_t product)
{
    char ids[32];
    std::snprintf(ids, sizeof ids, "I: 18 %04x %04x\n", vendor, product);
    m_text = "# " + name + "\n# 0x05, 0x01, // Usage Page (Generic Desktop) 0\nR: " + std::to_string(descriptor.size()) +
             hexBytes(descriptor) + "\nN: " + name + "\nP: i2c-test\n" + ids;
}

RecordingText& RecordingText::report(std::int64_t timeUs, const std::vector<std::uint8_t>& bytes)
{
    char time[40];
    std::snprintf(time, sizeof time, "E: %06lld.%06lld ", static_cast<long long>(timeUs / 1000000),
                  static_cast<long long>(timeUs % 1000000));
    m_text += "# a decoded report would be here\n" + std::string(time) + std::to_string(bytes.size()) + hexBytes(bytes) + "\n";
    return *this;
}

std::filesystem::path RecordingText::save(const std::string& fileName) const
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / fileName;
    std::ofstream(path, std::ios::binary) << m_text;
    return path;
}

std::vector<std::uint8_t> RecordingText::shipped(const std::string& file)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/" + file);
    std::vector<std::uint8_t> bytes;
    std::string hex;
    while (in >> hex) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex, nullptr, 16)));
    }
    return bytes;
}
