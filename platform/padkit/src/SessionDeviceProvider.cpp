#include "padkit/SessionDeviceProvider.h"

#include <charconv>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "padkit/LiveDeviceCatalog.h"
#include "padkit/ReplayFile.h"
#include "padkit/Session.h"
#include "padkit/SessionConverter.h"
#include "padkit/SessionError.h"
#include "rawkit/InterfacePath.h"

namespace padkit {

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw harn5::HarnException(harn5::HarnString(message));
}

const char* kindName(SynDeviceType type)
{
    return type == SynDeviceTrackpoint ? "trackpoint" : "touchpad";
}

std::string hex4(std::uint16_t value)
{
    char text[6];
    std::snprintf(text, sizeof text, "%04X", value);
    return text;
}

std::optional<unsigned> deviceNumber(const std::string& text)
{
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || value > 255) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

SessionDeviceProvider::SessionDeviceProvider(SynDeviceType type, DeviceRegistry& registry)
    : m_type(type), m_registry(registry)
{
}

void SessionDeviceProvider::registerWith(harn5::Host& host)
{
    for (const SynDeviceType type : {SynDeviceTouchPad, SynDeviceTrackpoint}) {
        host.addDeviceProvider(kindName(type),
                               std::make_unique<SessionDeviceProvider>(type, DeviceRegistry::process()));
    }
    host.setConverter(std::make_unique<SessionConverter>());
    host.declareDeviceProperty("ReplayedFile", harn5::DevicePropertyTypes::Type::Text);
}

harn5::DiagDevice SessionDeviceProvider::makeDevice(const Request& request)
{
    const std::string where = "--device " + request.kind + ":" + request.source + ": ";
    if (request.source.empty()) {
        fail(where + "the file is missing; give " + request.kind + ":FILE (a session file or a HID recording)");
    }
    DeviceRegistry::Entry entry;
    entry.type = m_type;
    std::error_code ignored;
    const std::filesystem::path file = harn5::Text::toPath(request.source);
    entry.session = std::filesystem::absolute(file, ignored);
    if (entry.session.empty()) {
        entry.session = file;
    }
    entry.record = request.record;

    std::vector<harn5::DeviceProperty> given;
    for (const auto& [name, value] : request.settings) {
        if (name == "speed") {
            const std::optional<ReplayClock> clock = ReplayClock::parse(value);
            if (!clock) {
                fail(where + "speed \"" + value + "\" is not a replay speed; give a factor such as 4 or 0.5, or max");
            }
            entry.clock = *clock;
        } else if (name == "loop") {
            if (value != "true" && value != "false") {
                fail(where + "loop \"" + value + "\" is not true or false");
            }
            entry.loop = value == "true";
        } else if (name == "device") {
            const std::optional<unsigned> index = deviceNumber(value);
            if (!index) {
                fail(where + "device \"" + value + "\" is not a device number; give a recording's D: number, 0 to 255");
            }
            entry.recordedDevice = index;
        } else {
            given.emplace_back(harn5::HarnString(name), harn5::HarnString(value));
        }
    }

    // The header is checked now, before any test runs; the packets are read as they are replayed.
    std::unique_ptr<PacketSource> source;
    try {
        source = ReplayFile::open(file, m_type, entry.recordedDevice);
    } catch (const SessionError& error) {
        fail(error.what());
    }
    const Session& header = source->header();

    const auto isGiven = [&](const char* name) {
        for (const harn5::DeviceProperty& property : given) {
            if (property.name().utf8() == name) {
                return true;
            }
        }
        return false;
    };
    std::vector<harn5::DeviceProperty> properties;
    const auto add = [&](const char* name, const std::string& value) {
        if (!isGiven(name)) {
            properties.emplace_back(harn5::HarnString(name), harn5::HarnString(value));
        }
    };
    add("SP_Handle", std::to_string(m_registry.add(entry)));
    add("Kind", m_type == SynDeviceTrackpoint ? "pointing stick" : "touchpad");
    add("ReplayedFile", harn5::Text::fromPath(file));
    if (header.pnpId) {
        add("SP_PnPID", *header.pnpId);
        if (const std::optional<std::uint16_t> vid = rawkit::InterfacePath::vendorId(*header.pnpId)) {
            add("VID", hex4(*vid));
        }
        if (const std::optional<std::uint16_t> pid = rawkit::InterfacePath::productId(*header.pnpId)) {
            add("PID", hex4(*pid));
        }
    }
    if (header.blacklistVersion) {
        add("SynapticsBlacklistVersion", *header.blacklistVersion);
    }
    if (m_type == SynDeviceTouchPad && header.version == 2) {
        rawkit::TouchLayout layout;
        layout.widthMm = header.widthMm;
        layout.heightMm = header.heightMm;
        add("PadSize", LiveDeviceCatalog::padSize(layout));
        if (source->contactsPerReport() > 0) {
            add("ContactsPerReport", std::to_string(source->contactsPerReport()));
        }
    }
    properties.insert(properties.end(), given.begin(), given.end());

    const harn5::DeviceCapability capability =
        harn5::DeviceCapability::Mouse() | harn5::DeviceCapability::SynapticsMouse() |
        (m_type == SynDeviceTrackpoint ? harn5::DeviceCapability::SynapticsTrackpoint()
                                       : harn5::DeviceCapability::SynapticsTouchPad());
    // The file, and the device as the recording names it.
    const std::string name = std::string(m_type == SynDeviceTrackpoint ? "TrackPoint" : "Touchpad") + " " +
                             std::to_string(request.index) + " (" + harn5::Text::fromPath(file.filename()) +
                             (header.name ? ": " + *header.name : std::string()) + ")";
    return harn5::DiagDevice(harn5::HarnString(name), capability, std::move(properties));
}

}  // namespace padkit
