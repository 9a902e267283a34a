#include "padkit/SynapticsHelper.h"

#include "padkit/DeviceRegistry.h"

SynDeviceType SynapticsHelper::getDeviceType(long synHandle)
{
    const std::optional<padkit::DeviceRegistry::Entry> entry = padkit::DeviceRegistry::process().find(synHandle);
    return entry ? entry->type : SynDeviceUnknown;
}
