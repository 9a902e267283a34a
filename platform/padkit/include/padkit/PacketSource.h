#pragma once
// A recorded device's packets as a replay reads them, a packet at a time from its file: a
// session file (SessionFileSource) or a HID recording (RecordingSource).
#include "padkit/Packet.h"
#include "padkit/Session.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

class PacketSource {
public:
    virtual ~PacketSource() = default;

    // What the device is: kind, ranges, hardware id, size and name; no packets.
    virtual const Session& header() const = 0;
    // The next packet; false after the last. A fault of the file throws SessionError naming the
    // file and line.
    virtual bool next(Packet& packet) = 0;
    // The frame the last packet was made of, where the file has a touchpad's contacts; else null.
    virtual const rawkit::TouchFrame* frame() const = 0;
    // Frames so far that never completed or made no sense (never given as packets).
    virtual unsigned long malformedFrames() const = 0;
    // A touchpad's finger collections a report where the file says (a recording's descriptor);
    // 0 where it does not.
    virtual unsigned contactsPerReport() const = 0;
};

}  // namespace padkit
