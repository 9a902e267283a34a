#pragma once
// Describes the machine's pointing devices to the host: a mouse is offered to the mouse tests,
// a touchpad and a pointing stick to their touch tests (registered as live devices, so they
// have an SP_Handle), any other pointer is listed with no capability. Each carries what the
// system says of it as properties.
#include <cstddef>
#include <filesystem>
#include <vector>

#include "harn5/DiagDevice.h"
#include "harn5/Host.h"
#include "padkit/DeviceRegistry.h"
#include "rawkit/DeviceInfo.h"

namespace padkit {

class LiveDeviceCatalog {
public:
    // record: where a touch device's session is written (DeviceRegistry::claimRecording);
    // empty: nothing is recorded.
    LiveDeviceCatalog(DeviceRegistry& registry, std::filesystem::path record);

    // Throws HarnException for a touch device whose reports cannot be read.
    std::vector<harn5::DiagDevice> describe(const std::vector<rawkit::DeviceInfo>& devices);
    // The device at index (its place among the machine's pointing devices) as a pointing stick.
    harn5::DiagDevice stick(const rawkit::DeviceInfo& device, std::size_t index);

    // What the system says of the device at index, and the index (what stick:INDEX takes).
    static std::vector<harn5::DeviceProperty> properties(const rawkit::DeviceInfo& device, std::size_t index);
    // Declares the properties' types to the host.
    static void declareProperties(harn5::Host& host);
    // A touchpad's size as listed: "101.3 x 56.6 mm", or "unknown" when its descriptor has none.
    static std::string padSize(const rawkit::TouchLayout& layout);
    // "Mouse 0 (845E:0001)": the kind, the index and the VID:PID or hardware id.
    static std::string displayName(const rawkit::DeviceInfo& device, std::size_t index);

private:
    harn5::DiagDevice touchDevice(const rawkit::DeviceInfo& device, std::size_t index, rawkit::DeviceKind kind);

    DeviceRegistry& m_registry;
    std::filesystem::path m_record;
};

}  // namespace padkit
