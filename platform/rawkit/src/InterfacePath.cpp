#include "rawkit/InterfacePath.h"

#include <cctype>
#include <cstdio>

namespace rawkit {

namespace {

std::optional<std::uint16_t> hexAfter(std::string_view path, std::string_view tag)
{
    const std::string text = InterfacePath::upper(path);
    for (std::size_t at = text.find(tag); at != std::string::npos; at = text.find(tag, at + 1)) {
        // A tag is a whole field: it starts the path or follows a separator.
        if (at > 0 && std::isalnum(static_cast<unsigned char>(text[at - 1])) != 0) {
            continue;
        }
        const std::size_t digits = at + tag.size();
        if (digits + 4 > text.size()) {
            return std::nullopt;
        }
        unsigned value = 0;
        for (std::size_t i = digits; i < digits + 4; ++i) {
            if (std::isxdigit(static_cast<unsigned char>(text[i])) == 0) {
                return std::nullopt;
            }
            const char c = text[i];
            value = value * 16 + static_cast<unsigned>(c <= '9' ? c - '0' : c - 'A' + 10);
        }
        return static_cast<std::uint16_t>(value);
    }
    return std::nullopt;
}

}  // namespace

std::string InterfacePath::hardwareId(std::string_view path)
{
    std::string_view rest = path;
    for (std::string_view prefix : {"\\\\?\\", "\\??\\", "\\\\.\\"}) {
        if (rest.substr(0, prefix.size()) == prefix) {
            rest.remove_prefix(prefix.size());
            break;
        }
    }
    const std::size_t first = rest.find('#');
    const std::size_t second = first == std::string_view::npos ? first : rest.find('#', first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) {
        return std::string(path);
    }
    std::string id(rest.substr(0, second));
    id[first] = '\\';
    return upper(id);
}

std::string InterfacePath::upper(std::string_view text)
{
    std::string out(text);
    for (char& c : out) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return out;
}

std::optional<std::uint16_t> InterfacePath::vendorId(std::string_view path)
{
    return hexAfter(path, "VID_");
}

std::optional<std::uint16_t> InterfacePath::productId(std::string_view path)
{
    return hexAfter(path, "PID_");
}

std::string InterfacePath::vidPid(std::string_view path)
{
    const std::optional<std::uint16_t> vid = vendorId(path);
    const std::optional<std::uint16_t> pid = productId(path);
    if (!vid || !pid) {
        return {};
    }
    char text[10];
    std::snprintf(text, sizeof text, "%04X:%04X", *vid, *pid);
    return text;
}

}  // namespace rawkit
