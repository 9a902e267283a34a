#pragma once
// Delivers a live device's packets on the thread that made it, as they arrive through Raw
// Input: a precision touchpad's HID reports decoded and put together into frames (one packet a
// complete frame), or a pointing stick's mouse reports, with a rest packet when the stick stops
// reporting. Each frame (touchpad) or packet (stick) is also written to the recording when the
// device has one. A device that is removed, or whose handle stops answering, ends the
// delivery and is reported once.
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "padkit/DeviceRegistry.h"
#include "padkit/SYNStatus.h"
#include "padkit/Session.h"
#include "padkit/SessionWriter.h"
#include "padkit/StickPacketBuilder.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/HidTouchDecoder.h"
#include "rawkit/RawInputReceiver.h"

namespace padkit {

class LivePump {
public:
    using Deliver = std::function<void(long sequence, const Packet& packet)>;
    using Gone = std::function<void()>;

    // Null, with status telling why, when the device is not attached, cannot be decoded, its
    // recording cannot be made or its input cannot be received.
    static std::unique_ptr<LivePump> start(const DeviceRegistry::Entry& entry, Deliver deliver, Gone gone,
                                           _tagSYNStatus& status);
    ~LivePump();
    LivePump(const LivePump&) = delete;
    LivePump& operator=(const LivePump&) = delete;

    // The device's kind, ranges and hardware id, as its recording's header has them.
    const Session& description() const { return m_description; }
    // A touchpad's frames that never completed or made no sense.
    unsigned long malformedFrames() const { return m_malformed + (m_touch ? m_touch->malformedFrames() : 0); }
    // Finds the device again (it may have a new handle after the machine slept) and carries on.
    bool reacquire();

private:
    using Clock = std::chrono::steady_clock;

    LivePump(const DeviceRegistry::Entry& entry, Deliver deliver, Gone gone);
    _tagSYNStatus attach();
    void onInput(const RAWINPUT& input);
    void onTick();
    void emit(const Packet& packet);
    std::int64_t nowUs() const;
    void lose();
    std::int64_t nowMs() const;

    DeviceRegistry::Entry m_entry;
    Deliver m_deliver;
    Gone m_gone;
    std::uintptr_t m_device = 0;
    Session m_description;
    std::unique_ptr<rawkit::HidTouchDecoder> m_decoder;
    std::optional<TouchFrameStream> m_touch;
    StickPacketBuilder m_stick;
    std::unique_ptr<rawkit::RawInputReceiver> m_receiver;
    std::unique_ptr<SessionWriter> m_writer;
    Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastReport;
    Clock::time_point m_lastCheck;
    bool m_stickAtRest = true;
    bool m_lost = false;
    unsigned long m_malformed = 0;   // of the frame streams before a re-acquire
    long m_sequence = 0;
    // Expires with the pump: a receiver may destroy it while taking a packet.
    std::shared_ptr<char> m_alive = std::make_shared<char>();
};

}  // namespace padkit
