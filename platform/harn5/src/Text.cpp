#include "harn5/Text.h"

namespace harn5 {

std::string Text::trim(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    const auto last = text.find_last_not_of(" \t");
    return std::string(text.substr(first, last - first + 1));
}

std::vector<std::string> Text::split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = text.find(separator, begin);
        if (end == std::string_view::npos) {
            parts.emplace_back(text.substr(begin));
            return parts;
        }
        parts.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

std::string Text::lower(std::string_view text)
{
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return out;
}

std::size_t Text::utf8SequenceLength(std::string_view text, std::size_t index)
{
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(index);
    std::size_t length = 0;
    unsigned minimum = 0;
    unsigned code = 0;
    if (lead < 0x80) {
        return 1;
    }
    if ((lead & 0xE0) == 0xC0) {
        length = 2, minimum = 0x80, code = lead & 0x1Fu;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, minimum = 0x800, code = lead & 0x0Fu;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, minimum = 0x10000, code = lead & 0x07u;
    } else {
        return 0;
    }
    if (index + length > text.size()) {
        return 0;
    }
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(index + k) & 0xC0) != 0x80) {
            return 0;
        }
        code = (code << 6) | (byte(index + k) & 0x3Fu);
    }
    // Overlong forms, surrogates and values past U+10FFFF are not UTF-8.
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < minimum || code > 0x10FFFF || surrogate ? 0 : length;
}

bool Text::isValidUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = utf8SequenceLength(text, i);
        if (length == 0) {
            return false;
        }
        i += length;
    }
    return true;
}

std::string Text::visible(std::string_view text)
{
    static const char kHex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 && c != '\t') {
            out += "\\x";
            out += kHex[byte >> 4];
            out += kHex[byte & 0xF];
        } else {
            out += c;
        }
    }
    return out;
}

std::string Text::fromPath(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::filesystem::path Text::toPath(const std::string& utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace harn5
