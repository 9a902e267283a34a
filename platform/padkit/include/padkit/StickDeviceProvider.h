#pragma once
// Makes the host's "--device stick:INDEX" and "--device stick:TEXT" devices: the machine's
// pointing device at that index (as --list-devices numbers them), or the one whose interface
// path or hardware id contains TEXT (ignoring case), tested as a pointing stick. Only a device
// that reports as a relative mouse can be one.
#include <functional>
#include <vector>

#include "harn5/DeviceProvider.h"
#include "padkit/DeviceRegistry.h"
#include "rawkit/DeviceInfo.h"

namespace padkit {

class StickDeviceProvider : public harn5::DeviceProvider {
public:
    using Lister = std::function<std::vector<rawkit::DeviceInfo>()>;

    StickDeviceProvider(Lister lister, DeviceRegistry& registry);

    // Every setting is a device property and wins over what the system says.
    harn5::DiagDevice makeDevice(const Request& request) override;

private:
    Lister m_lister;
    DeviceRegistry& m_registry;
};

}  // namespace padkit
