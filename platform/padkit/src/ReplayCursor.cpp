#include "padkit/ReplayCursor.h"

#include <utility>

#include "padkit/SessionError.h"

namespace padkit {

ReplayCursor::ReplayCursor(Opener open, ReplayClock clock, bool loop)
    : m_open(std::move(open)), m_source(m_open()), m_clock(clock), m_loop(loop)
{
    readNext();
}

// The source's next packet, and its frame, into m_next.
bool ReplayCursor::take(Packet& packet)
{
    if (!m_source->next(packet)) {
        return false;
    }
    m_next = packet;
    const rawkit::TouchFrame* frame = m_source->frame();
    m_nextFrame = frame != nullptr ? std::optional<rawkit::TouchFrame>(*frame) : std::nullopt;
    return true;
}

void ReplayCursor::readNext()
{
    m_next.reset();
    m_nextStartsLap = false;
    try {
        Packet packet;
        if (take(packet)) {
            return;
        }
        // A new lap reads the file from its start; a file without packets has none.
        if (m_loop && m_inLap > 0) {
            m_source = m_open();
            m_nextStartsLap = take(packet);
        }
    } catch (const SessionError& error) {
        m_fault = error.what();
    }
}

std::optional<double> ReplayCursor::delayToNext() const
{
    if (!m_next) {
        return std::nullopt;
    }
    // A new lap begins as the recording did: the first packet's time after the last one.
    const std::int64_t since = m_current && !m_nextStartsLap ? m_current->timeMs : 0;
    return m_clock.wallMs(m_next->timeMs - since);
}

long ReplayCursor::advance()
{
    if (m_next) {
        m_inLap = m_nextStartsLap ? 1 : m_inLap + 1;
        m_current = m_next;
        m_currentFrame = std::move(m_nextFrame);
        readNext();
    }
    return ++m_sequence;
}

const Packet* ReplayCursor::current() const
{
    return m_current ? &*m_current : nullptr;
}

const rawkit::TouchFrame* ReplayCursor::currentFrame() const
{
    return m_currentFrame ? &*m_currentFrame : nullptr;
}

void ReplayCursor::reopen()
{
    std::unique_ptr<PacketSource> fresh = m_open();
    m_source = std::move(fresh);
    m_fault.clear();
    // The packets already delivered in this lap, read again and passed over.
    std::size_t passed = 0;
    try {
        Packet packet;
        while (passed < m_inLap && take(packet)) {
            m_current = packet;
            m_currentFrame = std::move(m_nextFrame);
            ++passed;
        }
    } catch (const SessionError& error) {
        m_fault = error.what();
        m_next.reset();
        return;
    }
    // A file that got shorter is over, or with looping starts its next lap.
    m_inLap = passed;
    readNext();
}

}  // namespace padkit
