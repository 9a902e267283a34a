#pragma once
// One named property of a device, such as "SP_Handle" or "SP_PnPID".
#include "harn5/HarnString.h"
#include "harn5/Value.h"

namespace harn5 {

class DeviceProperty {
public:
    DeviceProperty(const HarnString& name, const HarnString& value);

    const HarnString& name() const;
    Value value() const;
    const HarnString& text() const;

private:
    HarnString m_name;
    HarnString m_value;
};

}  // namespace harn5
