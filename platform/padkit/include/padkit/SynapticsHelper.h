#pragma once
// Questions about a touch device that need no open connection to it.
#include "padkit/SynDeviceType.h"

class SynapticsHelper {
public:
    // The type registered under the handle; SynDeviceUnknown (0) for a handle nobody registered.
    static SynDeviceType getDeviceType(long synHandle);
};
