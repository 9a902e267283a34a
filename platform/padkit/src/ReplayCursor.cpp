#include "padkit/ReplayCursor.h"

#include <utility>

namespace padkit {

ReplayCursor::ReplayCursor(Session session, ReplayClock clock, bool loop)
    : m_session(std::move(session)), m_clock(clock), m_loop(loop)
{
}

std::size_t ReplayCursor::nextIndex() const
{
    return m_index ? *m_index + 1 : 0;
}

std::optional<double> ReplayCursor::delayToNext() const
{
    const std::vector<Packet>& packets = m_session.packets;
    const std::size_t next = nextIndex();
    if (next < packets.size()) {
        const std::int64_t since = m_index ? packets[*m_index].timeMs : 0;
        return m_clock.wallMs(packets[next].timeMs - since);
    }
    if (m_loop && !packets.empty()) {
        // A new lap begins as the recording did: the first packet's time after the last one.
        return m_clock.wallMs(packets.front().timeMs);
    }
    return std::nullopt;
}

long ReplayCursor::advance()
{
    if (!m_session.packets.empty()) {
        const std::size_t next = nextIndex();
        m_index = next < m_session.packets.size() ? next : 0;
    }
    return ++m_sequence;
}

const Packet* ReplayCursor::current() const
{
    return m_index ? &m_session.packets[*m_index] : nullptr;
}

void ReplayCursor::reopen(Session session)
{
    m_session = std::move(session);
    if (m_index && *m_index >= m_session.packets.size()) {
        // The session got shorter: it is over, or with looping starts its next lap.
        m_index = m_session.packets.empty() ? std::nullopt : std::optional(m_session.packets.size() - 1);
    }
}

const Session& ReplayCursor::session() const
{
    return m_session;
}

}  // namespace padkit
