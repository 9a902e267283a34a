#pragma once
// How fast a recorded session is replayed: a factor on the recorded pace, or unpaced (each
// packet as soon as the message loop takes it).
#include <cstdint>
#include <optional>
#include <string_view>

namespace padkit {

class ReplayClock {
public:
    ReplayClock();                                     // the recorded pace
    static std::optional<ReplayClock> atSpeed(double factor);   // none unless 0 < factor < inf
    static ReplayClock unpaced();
    // "2", "0.5", "max"; none for anything else.
    static std::optional<ReplayClock> parse(std::string_view text);

    bool isUnpaced() const;
    // Wall-clock milliseconds that a stretch of recorded time takes; 0 when unpaced.
    double wallMs(std::int64_t recordedMs) const;

private:
    explicit ReplayClock(double factor);
    double m_factor;   // 0 when unpaced
};

}  // namespace padkit
