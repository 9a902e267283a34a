#include "vhid/PadId.h"

#include <cctype>
#include <cstdio>
#include <cwchar>

namespace vhid {

std::optional<PadId> PadId::parse(const std::string& text)
{
    if (text.size() != 9 || text[4] != ':') {
        return std::nullopt;
    }
    unsigned vendor = 0;
    unsigned product = 0;
    char end = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i != 4 && !std::isxdigit(static_cast<unsigned char>(text[i]))) {
            return std::nullopt;
        }
    }
    if (std::sscanf(text.c_str(), "%4x:%4x%c", &vendor, &product, &end) != 2) {
        return std::nullopt;
    }
    return PadId{static_cast<std::uint16_t>(vendor), static_cast<std::uint16_t>(product)};
}

std::string PadId::text() const
{
    char buffer[16];
    std::snprintf(buffer, sizeof(buffer), "%04X:%04X", vendorId, productId);
    return buffer;
}

std::wstring PadId::pathPart() const
{
    wchar_t buffer[32];
    std::swprintf(buffer, 32, L"VID_%04X&PID_%04X", vendorId, productId);
    return buffer;
}

std::wstring PadId::instanceId() const
{
    return L"ROOT\\" + pathPart() + L"\\0000";
}

}  // namespace vhid
