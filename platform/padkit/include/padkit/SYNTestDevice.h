#pragma once
// One touch device as its test sees it. Initialize() opens the device registered under the
// handle; from then on every packet is announced with OnSynDevicePacket() on the thread that
// called Initialize() (it must run a message loop), and readBuffer() copies the packet last
// announced into the protected state fields.
#include <cstdint>
#include <memory>
#include <optional>

#include "padkit/Packet.h"
#include "padkit/SYNStatus.h"
#include "padkit/Session.h"

namespace padkit {
class LivePump;
class ReplayPump;
}

class SYNTestDevice {
public:
    explicit SYNTestDevice(long handle);
    virtual ~SYNTestDevice();
    SYNTestDevice(const SYNTestDevice&) = delete;
    SYNTestDevice& operator=(const SYNTestDevice&) = delete;

    // Opens the device and starts its packets; SYN_OK (0) on success. The ranges are valid
    // from here on, the packet fields after the first readBuffer().
    _tagSYNStatus Initialize(long handle);

    // Called once per packet, in order; sequence counts the packets delivered since
    // Initialize() from 0. The default accepts the packet and returns 0.
    virtual long OnSynDevicePacket(long sequence);

    // Copies the packet last announced into the state fields; false before the first packet.
    bool readBuffer();

    // The packet last read.
    bool leftButtonPressed() const;
    bool rightButtonPressed() const;
    bool middleButtonPressed() const;
    bool isFingerPresent() const;
    bool fingerMotion() const;

    // Opens the device again (after the machine slept) and carries on with the next packet;
    // false when it cannot be opened, and then no more packets arrive.
    bool reaquireDevice();

    // A touchpad's physical size in mm; absent when its descriptor or recording does not say.
    std::optional<double> padWidthMm() const { return m_widthMm; }
    std::optional<double> padHeightMm() const { return m_heightMm; }
    // Frames that never completed or made no sense, since Initialize(); never shown.
    unsigned long malformedFrames() const;

    // Called once when a live device is removed or stops answering: no more packets arrive.
    // The default does nothing.
    virtual void OnSynDeviceRemoved();

protected:
    std::int32_t xLo = 0;
    std::int32_t xHi = 0;
    std::int32_t yLo = 0;
    std::int32_t yHi = 0;
    std::int32_t fingerX = 0;
    std::int32_t fingerY = 0;
    std::int32_t fingerWidth = 0;
    std::int32_t stickX = 0;
    std::int32_t stickY = 0;

private:
    void takeRanges(const padkit::Session& session);

    long m_handle;
    std::optional<double> m_widthMm;
    std::optional<double> m_heightMm;
    std::unique_ptr<padkit::ReplayPump> m_pump;   // a recorded session
    std::unique_ptr<padkit::LivePump> m_live;     // or a device of this machine
    std::optional<padkit::Packet> m_announced;   // the packet last announced
    padkit::Packet m_read;                       // the packet last read
};
