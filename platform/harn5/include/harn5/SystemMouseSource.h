#pragma once
// Win32: the system mouse as a device with the Mouse capability, when one is present.
#include "harn5/DeviceSource.h"

namespace harn5 {

class SystemMouseSource : public DeviceSource {
public:
    void enumerate(std::vector<DiagDevice>& devices) override;
};

}  // namespace harn5
