#include "harn5/DeviceProperty.h"

namespace harn5 {

DeviceProperty::DeviceProperty(const HarnString& name, const HarnString& value)
    : m_name(name), m_value(value)
{
}

const HarnString& DeviceProperty::name() const
{
    return m_name;
}

Value DeviceProperty::value() const
{
    return Value(m_value);
}

const HarnString& DeviceProperty::text() const
{
    return m_value;
}

}  // namespace harn5
