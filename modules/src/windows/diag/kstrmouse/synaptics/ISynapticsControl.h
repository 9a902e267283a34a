#pragma once
// How the Synaptics dialog reads its device control: finger, buttons, position, completion.
// The answers are those of the packet last read, at the moment of the call.
#include <windows.h>

// Posted by a device control to its parent after every device packet; both parameters 0.
constexpr UINT WM_SYN_PACKET = WM_USER + 39;
// Posted by a device control to its parent once its live device is removed or stops answering.
constexpr UINT WM_SYN_DEVICE_REMOVED = WM_USER + 40;

// No destructor of its own: a control is deleted through its window class.
class ISynapticsControl {
public:
    virtual bool isFingerPresent() = 0;
    virtual bool leftButtonPressed() = 0;
    virtual bool middleButtonPressed() = 0;
    virtual bool rightButtonPressed() = 0;
    virtual bool hasMoved() = 0;
    virtual int getX() = 0;
    virtual int getY() = 0;
    virtual int getWidth() = 0;
    // Every check the control demands has been seen.
    virtual bool isTestComplete() = 0;
    // Opens the device again after the machine slept; false when that failed.
    virtual bool reaquireDevice() = 0;
};
