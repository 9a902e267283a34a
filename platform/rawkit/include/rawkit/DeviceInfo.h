#pragma once
// One pointing device of the machine as Raw Input describes it: what it is, where it is and what
// it offers. Filled by the platform's enumeration; portable so that the rules over it are tested
// natively.
#include <cstdint>
#include <optional>
#include <string>

#include "rawkit/TouchFrame.h"

namespace rawkit {

enum class DeviceKind { Mouse, Touchpad, PointingStick, Other };

// "mouse", "touchpad", "pointing stick", "other": as listed and as the Kind property.
const char* kindName(DeviceKind kind);

struct DeviceInfo {
    std::uintptr_t handle = 0;        // the Raw Input handle; valid while the device is attached
    DeviceKind kind = DeviceKind::Other;
    std::string path;                 // the interface path (RIDI_DEVICENAME), UTF-8
    std::string hardwareId;           // e.g. "HID\VID_845E&PID_0001", from the path
    std::optional<std::uint16_t> vid; // where the path has them
    std::optional<std::uint16_t> pid;
    bool rawMouse = false;            // reports as a relative mouse (RIM_TYPEMOUSE)
    std::uint16_t usagePage = 0;      // of the top-level collection; 0 for a raw mouse
    std::uint16_t usage = 0;
    unsigned buttons = 0;
    unsigned sampleRate = 0;          // reports per second as the driver states it; 0 unknown
    bool horizontalWheel = false;
    std::optional<TouchLayout> touch; // a touchpad whose reports can be read: its layout
    std::string problem;              // why its reports cannot be read; empty when they can
};

}  // namespace rawkit

namespace rawkit {

class KnownSticks;

// HID collections that point: digitizers (pen, touch screen, touchpad) and generic pointers.
bool isPointingCollection(std::uint16_t usagePage, std::uint16_t usage);
// A raw mouse is a mouse unless its hardware id is a known stick; a HID digitizer with the
// touchpad usage is a touchpad; any other pointer is other.
DeviceKind kindOf(const DeviceInfo& device, const KnownSticks& sticks);

}  // namespace rawkit
