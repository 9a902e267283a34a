#include "vhid/HexBytes.h"

namespace vhid {

namespace {

int digit(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::optional<std::vector<std::uint8_t>> HexBytes::parse(std::string_view text, std::string& error)
{
    std::vector<std::uint8_t> bytes;
    std::size_t i = 0;
    while (i < text.size()) {
        if (isBlank(text[i])) {
            ++i;
            continue;
        }
        const int high = digit(text[i]);
        const int low = i + 1 < text.size() ? digit(text[i + 1]) : -1;
        if (high < 0 || low < 0) {
            const std::size_t bad = high < 0 ? i : i + 1;
            error = bad < text.size() ? "\"" + std::string(1, text[bad]) + "\" at character " + std::to_string(bad + 1) +
                                            " is not a hex digit of a byte"
                                      : "the last byte has one hex digit";
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
        i += 2;
    }
    return bytes;
}

std::string HexBytes::format(const std::vector<std::uint8_t>& bytes)
{
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) {
            text += ' ';
        }
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

}  // namespace vhid
