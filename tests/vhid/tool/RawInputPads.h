#pragma once
// Whether a virtual touchpad is among the system's devices, as a program sees it: its HID
// interface opens, and it is in the raw-input device list.
#include <string>

#include "vhid/PadId.h"

class RawInputPads {
public:
    static bool present(const vhid::PadId& id);
    // Until the pad is there (its interface opens and raw input lists it), or gone from the
    // raw-input list, for at most `timeoutMs`; whether it came to be so. Wine refreshes a
    // process's raw-input list at most every two seconds, and a device whose interface does not
    // open yet when it does is left out until the next: the interface is waited for first.
    static bool waitFor(const vhid::PadId& id, bool present, unsigned timeoutMs);

    // The pad's HID interface, when it is there and opens; empty otherwise.
    static std::wstring interfacePath(const vhid::PadId& id);
};
