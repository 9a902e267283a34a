#include "harn5/DiagDevice.h"

#include <utility>

namespace harn5 {

DiagDevice::DiagDevice(const HarnString& name, const DeviceCapability& capability,
                       std::vector<DeviceProperty> properties)
    : m_name(name), m_capability(capability), m_properties(std::move(properties))
{
}

bool DiagDevice::hasCapability(const DeviceCapability& capability) const
{
    return m_capability.contains(capability);
}

const DeviceProperty* DiagDevice::property(const HarnString& name) const
{
    for (const DeviceProperty& property : m_properties) {
        if (property.name() == name) {
            return &property;
        }
    }
    return nullptr;
}

const HarnString& DiagDevice::name() const
{
    return m_name;
}

const DeviceCapability& DiagDevice::capability() const
{
    return m_capability;
}

const std::vector<DeviceProperty>& DiagDevice::properties() const
{
    return m_properties;
}

}  // namespace harn5
