#pragma once
// Whether a touch device that went away is gone: the machine going to sleep or waking up takes
// devices away for a moment, so a removal near a power broadcast waits for the device to come
// back before it counts. Times are milliseconds on one steady clock.
#include <cstdint>
#include <optional>

class RemovalWatch {
public:
    // How near a broadcast a removal must be to wait, and how long it then waits after the later
    // of the two.
    static constexpr std::int64_t kNearSleepMs = 5000;

    void onSuspend(std::int64_t now);
    void onResume(std::int64_t now);

    // The device is gone at `now`: true when that stands at once, false when it may come back.
    bool removalStands(std::int64_t now);
    // While waiting: whether the device had its time and the removal now stands.
    bool waitOver(std::int64_t now) const;
    bool waiting() const { return m_removedAt.has_value(); }
    // The device answered again: the removal is forgotten.
    void cameBack() { m_removedAt.reset(); }

private:
    std::int64_t deadline() const;

    std::optional<std::int64_t> m_lastBroadcast;
    std::optional<std::int64_t> m_removedAt;
    bool m_asleep = false;   // a suspend with no resume since
};
