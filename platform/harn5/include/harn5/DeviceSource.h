#pragma once
// A provider of real devices (the system mouse, touch devices) registered with the host.
#include <vector>

#include "harn5/DiagDevice.h"

namespace harn5 {

class DeviceSource {
public:
    virtual ~DeviceSource() = default;
    // Appends the devices present now.
    virtual void enumerate(std::vector<DiagDevice>& devices) = 0;
};

}  // namespace harn5
