#include "SynapticsDevice.h"

SynapticsDevice::SynapticsDevice(long handle) : SYNTestDevice(handle) {}

SynapticsDevice::~SynapticsDevice() = default;

SynapticsDeviceState SynapticsDevice::state() const
{
    SynapticsDeviceState now;
    now.xLo = xLo;
    now.xHi = xHi;
    now.yLo = yLo;
    now.yHi = yHi;
    now.fingerX = fingerX;
    now.fingerY = fingerY;
    now.fingerWidth = fingerWidth;
    now.stickX = stickX;
    now.stickY = stickY;
    now.leftPressed = SYNTestDevice::leftButtonPressed();
    now.rightPressed = SYNTestDevice::rightButtonPressed();
    now.middlePressed = SYNTestDevice::middleButtonPressed();
    now.fingerPresent = SYNTestDevice::isFingerPresent();
    now.fingerMotion = SYNTestDevice::fingerMotion();
    return now;
}
