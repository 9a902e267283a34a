#pragma once
// Where a replay stands in its session and when its next packet is due. Pure bookkeeping:
// the platform's pump turns the delays into timers.
#include <cstddef>
#include <optional>

#include "padkit/Packet.h"
#include "padkit/ReplayClock.h"
#include "padkit/Session.h"

namespace padkit {

class ReplayCursor {
public:
    ReplayCursor(Session session, ReplayClock clock, bool loop);

    // Wall-clock milliseconds from the previous packet (or from the start) to the next one;
    // none when the session is over.
    std::optional<double> delayToNext() const;
    // Steps to the next packet (there must be one) and answers its sequence number, counted
    // from 0 across laps and re-openings.
    long advance();
    // The packet advance() stepped to last; null before the first.
    const Packet* current() const;

    // A freshly opened copy of the session: the replay carries on after the same packet.
    void reopen(Session session);
    const Session& session() const;

private:
    std::size_t nextIndex() const;

    Session m_session;
    ReplayClock m_clock;
    bool m_loop;
    std::optional<std::size_t> m_index;   // of current()
    long m_sequence = -1;
};

}  // namespace padkit
