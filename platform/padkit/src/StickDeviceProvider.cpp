#include "padkit/StickDeviceProvider.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>
#include <utility>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "padkit/LiveDeviceCatalog.h"
#include "rawkit/InterfacePath.h"

namespace padkit {

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw harn5::HarnException(harn5::HarnString(message));
}

std::optional<std::size_t> asIndex(const std::string& text)
{
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return index;
}

}  // namespace

StickDeviceProvider::StickDeviceProvider(Lister lister, DeviceRegistry& registry)
    : m_lister(std::move(lister)), m_registry(registry)
{
}

harn5::DiagDevice StickDeviceProvider::makeDevice(const Request& request)
{
    const std::string where = "--device " + request.kind + ":" + request.source + ": ";
    if (request.source.empty()) {
        fail(where + "no device is named; give stick:INDEX or stick:TEXT (--list-devices shows them)");
    }
    const std::vector<rawkit::DeviceInfo> devices = m_lister();
    std::size_t chosen = devices.size();
    if (const std::optional<std::size_t> index = asIndex(request.source)) {
        if (*index >= devices.size()) {
            fail(where + "there is no device " + request.source + "; this machine has " +
                 std::to_string(devices.size()) + " pointing device(s), --list-devices shows them");
        }
        chosen = *index;
    } else {
        const std::string text = rawkit::InterfacePath::upper(request.source);
        std::vector<std::size_t> matches;
        for (std::size_t i = 0; i < devices.size(); ++i) {
            if (rawkit::InterfacePath::upper(devices[i].path).find(text) != std::string::npos ||
                rawkit::InterfacePath::upper(devices[i].hardwareId).find(text) != std::string::npos) {
                matches.push_back(i);
            }
        }
        if (matches.empty()) {
            fail(where + "no device's interface path or hardware id contains \"" + request.source +
                 "\"; --list-devices shows them");
        }
        if (matches.size() > 1) {
            fail(where + std::to_string(matches.size()) + " devices match; give more of the path, or an index (" +
                 std::to_string(matches.front()) + ", " + std::to_string(matches[1]) + "...)");
        }
        chosen = matches.front();
    }
    const rawkit::DeviceInfo& device = devices[chosen];
    if (!device.rawMouse) {
        fail(where + "device " + std::to_string(chosen) + " is a " + rawkit::kindName(device.kind) +
             ", not a device that reports as a mouse");
    }
    LiveDeviceCatalog catalog(m_registry, harn5::Text::toPath(request.record));
    const harn5::DiagDevice made = catalog.stick(device, chosen);
    std::vector<harn5::DeviceProperty> properties;
    for (const harn5::DeviceProperty& property : made.properties()) {
        const bool given = std::any_of(request.settings.begin(), request.settings.end(),
                                       [&](const auto& setting) { return setting.first == property.name().utf8(); });
        if (!given) {
            properties.push_back(property);
        }
    }
    for (const auto& [name, value] : request.settings) {
        properties.emplace_back(harn5::HarnString(name), harn5::HarnString(value));
    }
    return {made.name(), made.capability(), std::move(properties)};
}

}  // namespace padkit
