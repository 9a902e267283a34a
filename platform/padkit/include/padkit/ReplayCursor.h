#pragma once
// Where a replay stands in its file and when its next packet is due. The file is read as the
// replay goes, a packet ahead of the one delivered: a long file takes the memory of a short one.
// A fault found later in the file ends the replay there, and says why. Pure bookkeeping: the
// platform's pump turns the delays into timers.
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "padkit/PacketSource.h"
#include "padkit/ReplayClock.h"

namespace padkit {

class ReplayCursor {
public:
    // Opens the file from its start; a SessionError when it cannot be opened.
    using Opener = std::function<std::unique_ptr<PacketSource>()>;

    // Opens the file at once (a SessionError when it cannot be).
    ReplayCursor(Opener open, ReplayClock clock, bool loop);

    // Wall-clock milliseconds from the previous packet (or from the start) to the next one;
    // none when the replay is over.
    std::optional<double> delayToNext() const;
    // Steps to the next packet (there must be one) and answers its sequence number, counted
    // from 0 across laps and re-openings.
    long advance();
    // The packet advance() stepped to last; null before the first.
    const Packet* current() const;
    // The frame it was made of, where the file has a touchpad's contacts.
    const rawkit::TouchFrame* currentFrame() const;

    // Opens the file afresh (after the machine slept) and carries on after the same packet; a
    // SessionError when it cannot be opened.
    void reopen();
    // The device as the file describes it.
    const Session& session() const { return m_source->header(); }
    const PacketSource& source() const { return *m_source; }
    // Why the replay ended before its file did ("FILE:LINE: ..."); empty while it has not.
    const std::string& fault() const { return m_fault; }

private:
    void readNext();
    bool take(Packet& packet);

    Opener m_open;
    std::unique_ptr<PacketSource> m_source;
    ReplayClock m_clock;
    bool m_loop;
    std::optional<Packet> m_current;
    std::optional<rawkit::TouchFrame> m_currentFrame;
    std::optional<Packet> m_next;
    std::optional<rawkit::TouchFrame> m_nextFrame;
    bool m_nextStartsLap = false;
    std::size_t m_inLap = 0;        // packets delivered in this lap
    long m_sequence = -1;
    std::string m_fault;
};

}  // namespace padkit
