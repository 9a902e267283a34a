#pragma once
// The touch-device wrapper as the device controls use it: the wrapper's answers about the packet
// last read, copied into plain values for the controls' rules.
#include "SynapticsDeviceState.h"
#include "padkit/SYNTestDevice.h"

class SynapticsDevice : public SYNTestDevice {
public:
    explicit SynapticsDevice(long handle);
    ~SynapticsDevice() override;

protected:
    // The wrapper's own answers, not a control's reading of them.
    SynapticsDeviceState state() const;
};
