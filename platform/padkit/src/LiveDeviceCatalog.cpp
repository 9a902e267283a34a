#include "padkit/LiveDeviceCatalog.h"

#include <cstdio>
#include <string>
#include <utility>

#include "harn5/HarnException.h"
#include "rawkit/InterfacePath.h"

namespace padkit {

namespace {

harn5::DeviceProperty property(const char* name, const std::string& value)
{
    return {harn5::HarnString(name), harn5::HarnString(value)};
}

std::string hex4(std::uint16_t value)
{
    char text[6];
    std::snprintf(text, sizeof text, "%04X", value);
    return text;
}

}  // namespace

LiveDeviceCatalog::LiveDeviceCatalog(DeviceRegistry& registry, std::filesystem::path record)
    : m_registry(registry), m_record(std::move(record))
{
}

std::vector<harn5::DeviceProperty> LiveDeviceCatalog::properties(const rawkit::DeviceInfo& device, std::size_t index)
{
    std::vector<harn5::DeviceProperty> properties{
        property("Index", std::to_string(index)),
        property("Kind", rawkit::kindName(device.kind)),
        property("InterfacePath", device.path),
        property("SP_PnPID", device.hardwareId),
    };
    if (device.vid) {
        properties.push_back(property("VID", hex4(*device.vid)));
    }
    if (device.pid) {
        properties.push_back(property("PID", hex4(*device.pid)));
    }
    properties.push_back(property("Buttons", std::to_string(device.buttons)));
    properties.push_back(property("SampleRate", std::to_string(device.sampleRate)));
    properties.push_back(property("HorizontalWheel", device.horizontalWheel ? "true" : "false"));
    if (device.touch) {
        properties.push_back(property("PadSize", padSize(*device.touch)));
        properties.push_back(property("ContactsPerReport", std::to_string(device.touch->slots)));
    }
    return properties;
}

std::string LiveDeviceCatalog::padSize(const rawkit::TouchLayout& layout)
{
    if (!layout.widthMm || !layout.heightMm) {
        return "unknown";
    }
    char text[48];
    std::snprintf(text, sizeof text, "%.1f x %.1f mm", *layout.widthMm, *layout.heightMm);
    return text;
}

void LiveDeviceCatalog::declareProperties(harn5::Host& host)
{
    using Type = harn5::DevicePropertyTypes::Type;
    for (const char* name : {"Kind", "InterfacePath", "SP_PnPID", "PadSize"}) {
        host.declareDeviceProperty(name, Type::Text);
    }
    for (const char* name : {"Index", "Buttons", "SampleRate", "ContactsPerReport"}) {
        host.declareDeviceProperty(name, Type::Uint32);
    }
    host.declareDeviceProperty("VID", Type::Hex16);
    host.declareDeviceProperty("PID", Type::Hex16);
    host.declareDeviceProperty("HorizontalWheel", Type::Boolean);
    host.declareDeviceProperty("SP_Handle", Type::Int32);
}

std::string LiveDeviceCatalog::displayName(const rawkit::DeviceInfo& device, std::size_t index)
{
    std::string kind = rawkit::kindName(device.kind);
    kind[0] = static_cast<char>(kind[0] - 'a' + 'A');
    const std::string vidPid = rawkit::InterfacePath::vidPid(device.path);
    return kind + " " + std::to_string(index) + " (" + (vidPid.empty() ? device.hardwareId : vidPid) + ")";
}

harn5::DiagDevice LiveDeviceCatalog::touchDevice(const rawkit::DeviceInfo& device, std::size_t index,
                                                 rawkit::DeviceKind kind)
{
    rawkit::DeviceInfo described = device;
    described.kind = kind;
    DeviceRegistry::Entry entry;
    entry.type = kind == rawkit::DeviceKind::Touchpad ? SynDeviceTouchPad : SynDeviceTrackpoint;
    entry.liveDevice = device.path;
    entry.record = m_record;
    std::vector<harn5::DeviceProperty> found = properties(described, index);
    found.push_back(property("SP_Handle", std::to_string(m_registry.add(entry))));
    const harn5::DeviceCapability capability =
        harn5::DeviceCapability::Mouse() | harn5::DeviceCapability::SynapticsMouse() |
        (kind == rawkit::DeviceKind::Touchpad ? harn5::DeviceCapability::SynapticsTouchPad()
                                              : harn5::DeviceCapability::SynapticsTrackpoint());
    return {harn5::HarnString(displayName(described, index)), capability, std::move(found)};
}

harn5::DiagDevice LiveDeviceCatalog::stick(const rawkit::DeviceInfo& device, std::size_t index)
{
    return touchDevice(device, index, rawkit::DeviceKind::PointingStick);
}

std::vector<harn5::DiagDevice> LiveDeviceCatalog::describe(const std::vector<rawkit::DeviceInfo>& devices)
{
    std::vector<harn5::DiagDevice> described;
    for (std::size_t index = 0; index < devices.size(); ++index) {
        const rawkit::DeviceInfo& device = devices[index];
        switch (device.kind) {
        case rawkit::DeviceKind::Mouse:
            described.emplace_back(harn5::HarnString(displayName(device, index)), harn5::DeviceCapability::Mouse(),
                                   properties(device, index));
            break;
        case rawkit::DeviceKind::Touchpad:
        case rawkit::DeviceKind::PointingStick:
            if (!device.problem.empty()) {
                throw harn5::HarnException(harn5::HarnString(displayName(device, index) + " " + device.path + ": " +
                                                             device.problem + "; it cannot be tested"));
            }
            described.push_back(touchDevice(device, index, device.kind));
            break;
        case rawkit::DeviceKind::Other:
            described.emplace_back(harn5::HarnString(displayName(device, index)), harn5::DeviceCapability(),
                                   properties(device, index));
            break;
        }
    }
    return described;
}

}  // namespace padkit
