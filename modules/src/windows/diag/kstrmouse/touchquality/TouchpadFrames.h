#pragma once
// What the touchpad quality test needs of the device under test: its layout and where its frames
// come from. A live touchpad is read through Raw Input, a recorded session (version 2) replayed.
#include <optional>
#include <string>

#include "FrameSource.h"
#include "padkit/DeviceRegistry.h"
#include "rawkit/TouchFrame.h"

struct TouchpadFrames {
    rawkit::TouchLayout layout;
    FrameSource::Factory source;

    // None, with why in error, when the device's frames cannot be had.
    static std::optional<TouchpadFrames> of(const padkit::DeviceRegistry::Entry& entry, std::string& error);
};
