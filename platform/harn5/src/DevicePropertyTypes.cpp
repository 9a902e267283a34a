#include "harn5/DevicePropertyTypes.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "harn5/HarnException.h"
#include "harn5/ParameterParser.h"
#include "harn5/Value.h"

namespace harn5 {

namespace {

constexpr std::size_t kShortestSlipChecked = 5;   // shorter names (VID, PID) are too alike to guess at
constexpr std::size_t kMostEdits = 2;

[[noreturn]] void fail(const std::string& message)
{
    throw HarnException(HarnString(message));
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Edits (insert, delete, replace, swap of neighbours) from one name to the other.
std::size_t edits(const std::string& a, const std::string& b)
{
    std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        d[i][0] = i;
    }
    for (std::size_t j = 0; j <= b.size(); ++j) {
        d[0][j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t cost = a[i - 1] == b[j - 1] ? 0 : 1;
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + cost});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
            }
        }
    }
    return d[a.size()][b.size()];
}

}  // namespace

void DevicePropertyTypes::declare(const std::string& name, Type type)
{
    const auto [found, added] = m_types.emplace(name, type);
    if (!added && found->second != type) {
        fail("device property \"" + name + "\" is declared as " + allowed(found->second) + " and as " + allowed(type));
    }
}

std::optional<DevicePropertyTypes::Type> DevicePropertyTypes::typeOf(const std::string& name) const
{
    const auto found = m_types.find(name);
    if (found == m_types.end()) {
        return std::nullopt;
    }
    return found->second;
}

bool DevicePropertyTypes::valid(Type type, const std::string& text)
{
    switch (type) {
    case Type::Text:
        return true;
    case Type::Boolean:
        return ParameterParser::parseBoolean(text).has_value();
    case Type::Uint32:
        return ParameterParser::parseUint32(text).has_value();
    case Type::Int32: {
        const bool negative = !text.empty() && text[0] == '-';
        const std::optional<unsigned int> magnitude = ParameterParser::parseUint32(negative ? text.substr(1) : text);
        return magnitude && *magnitude <= (negative ? 2147483648U : 2147483647U);
    }
    case Type::Hex16:
        return text.size() == 4 &&
               std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isxdigit(c) != 0; });
    }
    return false;
}

const char* DevicePropertyTypes::allowed(Type type)
{
    switch (type) {
    case Type::Text:
        return "text";
    case Type::Boolean:
        return "true or false";
    case Type::Int32:
        return "a decimal 32-bit number";
    case Type::Uint32:
        return "a decimal number from 0 to 4294967295";
    case Type::Hex16:
        return "four hexadecimal digits";
    }
    return "?";
}

const char* DevicePropertyTypes::shortName(Type type)
{
    switch (type) {
    case Type::Text:
        return "text";
    case Type::Boolean:
        return "true/false";
    case Type::Int32:
        return "int32";
    case Type::Uint32:
        return "uint32";
    case Type::Hex16:
        return "hex16";
    }
    return "?";
}

std::optional<std::string> DevicePropertyTypes::nearMiss(const std::string& name) const
{
    for (const auto& [known, type] : m_types) {
        if (lower(known) == lower(name)) {
            return known;
        }
    }
    if (name.size() < kShortestSlipChecked) {
        return std::nullopt;
    }
    for (const auto& [known, type] : m_types) {
        if (known.size() >= kShortestSlipChecked && edits(lower(known), lower(name)) <= kMostEdits) {
            return known;
        }
    }
    return std::nullopt;
}

void DevicePropertyTypes::check(const DiagDevice& device) const
{
    const std::string where = "device \"" + device.name().utf8() + "\": ";
    for (const DeviceProperty& property : device.properties()) {
        const std::string name = property.name().utf8();
        const std::string text = property.text().utf8();
        if (const std::optional<Type> type = typeOf(name)) {
            if (!valid(*type, text)) {
                fail(where + "property " + name + " \"" + text + "\" is not " + allowed(*type));
            }
        } else if (const std::optional<std::string> meant = nearMiss(name)) {
            fail(where + "unknown property \"" + name + "\"; did you mean " + *meant + "?");
        }
    }
}

std::string DevicePropertyTypes::understood(const DiagDevice& device) const
{
    std::string text;
    for (const DeviceProperty& property : device.properties()) {
        const std::optional<Type> type = typeOf(property.name().utf8());
        text += (text.empty() ? "" : ", ") + property.name().utf8() + "=" + property.text().utf8() + " (" +
                (type ? shortName(*type) : "read by no test") + ")";
    }
    return text.empty() ? "no properties" : text;
}

}  // namespace harn5
