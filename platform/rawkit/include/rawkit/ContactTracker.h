#pragma once
// Follows a touchpad's contacts by id across complete frames. A contact is down from its first
// report with the tip set until one with the tip clear, or until a complete frame no longer has
// it. A contact reported without confidence is a palm until it lifts: never a finger, never
// counted as one. The finger shown is the earliest-down finger still down.
#include <cstdint>
#include <optional>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace rawkit {

class ContactTracker {
public:
    struct Finger {
        ContactReport contact;      // as last reported
        std::int64_t downUs = 0;    // when it first touched
    };

    void apply(const TouchFrame& frame);

    // Fingers down (palms excluded), earliest down first.
    const std::vector<Finger>& fingers() const { return m_fingers; }
    const Finger* shown() const { return m_fingers.empty() ? nullptr : &m_fingers.front(); }
    unsigned palmsDown() const { return static_cast<unsigned>(m_palms.size()); }
    // Frames that had at least one palm in them.
    unsigned long palmFrames() const { return m_palmFrames; }

private:
    std::vector<Finger> m_fingers;
    std::vector<std::uint32_t> m_palms;   // ids of contacts down as palms
    unsigned long m_palmFrames = 0;
};

}  // namespace rawkit
