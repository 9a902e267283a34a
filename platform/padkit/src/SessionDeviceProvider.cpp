#include "padkit/SessionDeviceProvider.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "padkit/Session.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"

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
}

harn5::DiagDevice SessionDeviceProvider::makeDevice(const Request& request)
{
    const std::string where = "--device " + request.kind + ":" + request.source + ": ";
    if (request.source.empty()) {
        fail(where + "the session file is missing; give " + request.kind + ":FILE");
    }
    DeviceRegistry::Entry entry;
    entry.type = m_type;
    std::error_code ignored;
    const std::filesystem::path file = harn5::Text::toPath(request.source);
    entry.session = std::filesystem::absolute(file, ignored);
    if (entry.session.empty()) {
        entry.session = file;
    }

    std::vector<harn5::DeviceProperty> given;
    for (const auto& [name, value] : request.settings) {
        if (name == "speed") {
            const std::optional<ReplayClock> clock = ReplayClock::parse(value);
            if (!clock) {
                fail(where + "speed \"" + value +
                     "\" is not a replay speed; give a factor such as 4 or 0.5, or max");
            }
            entry.clock = *clock;
        } else if (name == "loop") {
            if (value != "true" && value != "false") {
                fail(where + "loop \"" + value + "\" is not true or false");
            }
            entry.loop = value == "true";
        } else {
            given.emplace_back(harn5::HarnString(name), harn5::HarnString(value));
        }
    }

    Session session;
    try {
        session = SessionParser::load(file);
    } catch (const SessionError& error) {
        fail(error.what());
    }
    if (session.type != m_type) {
        fail(where + "the session records a " + kindName(session.type) + "; give it as " +
             kindName(session.type) + ":FILE");
    }

    const auto isGiven = [&](const char* name) {
        for (const harn5::DeviceProperty& property : given) {
            if (property.name().utf8() == name) {
                return true;
            }
        }
        return false;
    };
    std::vector<harn5::DeviceProperty> properties;
    if (!isGiven("SP_Handle")) {
        properties.emplace_back(harn5::HarnString("SP_Handle"),
                                harn5::HarnString(std::to_string(m_registry.add(entry))));
    }
    if (session.pnpId && !isGiven("SP_PnPID")) {
        properties.emplace_back(harn5::HarnString("SP_PnPID"), harn5::HarnString(*session.pnpId));
    }
    if (session.blacklistVersion && !isGiven("SynapticsBlacklistVersion")) {
        properties.emplace_back(harn5::HarnString("SynapticsBlacklistVersion"),
                                harn5::HarnString(*session.blacklistVersion));
    }
    properties.insert(properties.end(), given.begin(), given.end());

    const harn5::DeviceCapability capability =
        harn5::DeviceCapability::Mouse() | harn5::DeviceCapability::SynapticsMouse() |
        (m_type == SynDeviceTrackpoint ? harn5::DeviceCapability::SynapticsTrackpoint()
                                       : harn5::DeviceCapability::SynapticsTouchPad());
    const std::string name = std::string(m_type == SynDeviceTrackpoint ? "TrackPoint" : "Touchpad") +
                             " " + std::to_string(request.index) + " (" +
                             harn5::Text::fromPath(file.filename()) + ")";
    return harn5::DiagDevice(harn5::HarnString(name), capability, std::move(properties));
}

}  // namespace padkit
