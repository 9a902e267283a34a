#pragma once
// The device kinds "touchpad:FILE" and "trackpoint:FILE" for the fuzz targets: the real session
// providers, with FILE a name among the shipped sessions. A FILE with a '/' is refused before it
// reaches the disk, so that no input reads /dev/zero or waits on a pipe.
#include "harn5/DeviceProvider.h"
#include "padkit/DeviceRegistry.h"

class ShippedSessionDevices {
public:
    ShippedSessionDevices();
    ShippedSessionDevices(const ShippedSessionDevices&) = delete;
    ShippedSessionDevices& operator=(const ShippedSessionDevices&) = delete;

    const harn5::DeviceProviders& providers() const;

private:
    padkit::DeviceRegistry m_registry;   // one per input: handles would pile up over a long run
    harn5::DeviceProviders m_providers;
};
