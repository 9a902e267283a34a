#pragma once
// Where the touchpad quality dialog's frames come from: the live touchpad's reports put together,
// or a recording replayed. A source delivers on the dialog's thread, through its message loop,
// for as long as it exists, and keeps its own clock: a frame's time and the hands-off period are
// both on it.
#include <cstdint>
#include <functional>
#include <memory>

#include "rawkit/TouchFrame.h"

class FrameSource {
public:
    using Sink = std::function<void(const rawkit::TouchFrame& frame)>;
    // Starts a source that hands each complete frame to the sink; null when it could not start.
    using Factory = std::function<std::unique_ptr<FrameSource>(Sink sink)>;

    virtual ~FrameSource() = default;
    // Microseconds on the frames' clock now.
    virtual std::int64_t nowUs() const = 0;
    // Scans that never completed or were malformed: counted, never delivered.
    virtual unsigned long malformedFrames() const = 0;
    // The device went away: removed, or its handle stopped answering. A recording never does.
    virtual bool gone() const { return false; }
};
