#pragma once
// A device a test can run on: a display name, its capabilities and named properties.
#include <vector>

#include "harn5/DeviceCapability.h"
#include "harn5/DeviceProperty.h"
#include "harn5/HarnString.h"

namespace harn5 {

class DiagDevice {
public:
    DiagDevice(const HarnString& name, const DeviceCapability& capability,
               std::vector<DeviceProperty> properties = {});

    bool hasCapability(const DeviceCapability& capability) const;   // all of its bits
    const DeviceProperty* property(const HarnString& name) const;    // null when absent

    const HarnString& name() const;
    const DeviceCapability& capability() const;
    const std::vector<DeviceProperty>& properties() const;

private:
    HarnString m_name;
    DeviceCapability m_capability;
    std::vector<DeviceProperty> m_properties;
};

}  // namespace harn5
