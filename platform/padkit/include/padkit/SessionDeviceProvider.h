#pragma once
// Makes the host's "--device touchpad:FILE,..." and "--device trackpoint:FILE,..." devices from a
// session file or a HID recording: checks the file's header, registers it and describes the device
// as the driver would, with what the file says of it.
#include "harn5/DeviceProvider.h"
#include "harn5/Host.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/SynDeviceType.h"

namespace padkit {

class SessionDeviceProvider : public harn5::DeviceProvider {
public:
    // Devices of this type, registered in registry.
    SessionDeviceProvider(SynDeviceType type, DeviceRegistry& registry);

    // Gives the host both kinds, registering into the process's registry, and --convert.
    static void registerWith(harn5::Host& host);

    // Settings "speed" (a factor or max), "loop" (true/false) and "device" (which device of a
    // recording of several) steer the replay; every other one is a device property and wins over
    // the properties the file gives (SP_PnPID, VID, PID, SynapticsBlacklistVersion, the size) and
    // over the SP_Handle given out.
    harn5::DiagDevice makeDevice(const Request& request) override;

private:
    SynDeviceType m_type;
    DeviceRegistry& m_registry;
};

}  // namespace padkit
