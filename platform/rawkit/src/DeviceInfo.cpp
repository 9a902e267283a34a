#include "rawkit/DeviceInfo.h"

#include "rawkit/HidUsages.h"
#include "rawkit/KnownSticks.h"

namespace rawkit {

const char* kindName(DeviceKind kind)
{
    switch (kind) {
    case DeviceKind::Mouse:
        return "mouse";
    case DeviceKind::Touchpad:
        return "touchpad";
    case DeviceKind::PointingStick:
        return "pointing stick";
    case DeviceKind::Other:
        break;
    }
    return "other";
}

bool isPointingCollection(std::uint16_t usagePage, std::uint16_t usage)
{
    if (usagePage == hid::kDigitizer) {
        return true;
    }
    return usagePage == hid::kGenericDesktop && (usage == hid::kPointer || usage == hid::kMouse);
}

DeviceKind kindOf(const DeviceInfo& device, const KnownSticks& sticks)
{
    if (device.rawMouse) {
        return sticks.contains(device.hardwareId) ? DeviceKind::PointingStick : DeviceKind::Mouse;
    }
    if (device.usagePage == hid::kDigitizer && device.usage == hid::kTouchPad) {
        return DeviceKind::Touchpad;
    }
    return DeviceKind::Other;
}

}  // namespace rawkit
