#pragma once
// Whether a virtual touchpad is among the system's raw-input devices, as a program sees it.
#include "vhid/PadId.h"

class RawInputPads {
public:
    static bool present(const vhid::PadId& id);
    // Until the pad is there (or gone), for at most `timeoutMs`; whether it came to be so.
    static bool waitFor(const vhid::PadId& id, bool present, unsigned timeoutMs);
};
