#pragma once
// The kind of pointing device behind a handle, with the driver's numbering.
#include <cstdint>

enum SynDeviceType : std::int32_t {
    SynDeviceUnknown = 0,
    SynDeviceTouchPad = 2,
    SynDeviceTrackpoint = 4,
};
