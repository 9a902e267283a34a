#include "RemovalWatch.h"

#include <algorithm>

void RemovalWatch::onSuspend(std::int64_t now)
{
    m_lastBroadcast = now;
    m_asleep = true;
}

void RemovalWatch::onResume(std::int64_t now)
{
    m_lastBroadcast = now;
    m_asleep = false;
}

bool RemovalWatch::removalStands(std::int64_t now)
{
    const bool nearSleep = m_asleep || (m_lastBroadcast && now - *m_lastBroadcast <= kNearSleepMs);
    if (!nearSleep) {
        return true;
    }
    if (!m_removedAt) {
        m_removedAt = now;
    }
    return false;
}

bool RemovalWatch::waitOver(std::int64_t now) const
{
    // Between a suspend and its resume the machine may be asleep: the wait lasts until it wakes.
    return waiting() && !m_asleep && now > deadline();
}

std::int64_t RemovalWatch::deadline() const
{
    return std::max(*m_removedAt, m_lastBroadcast.value_or(*m_removedAt)) + kNearSleepMs;
}
