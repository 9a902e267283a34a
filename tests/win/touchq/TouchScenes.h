#pragma once
// What a technician does on a pad, as complete frames at 125 Hz: a sweep over every row of cells,
// fingers down together, a resting finger, clicks. Where the pad is dead nothing is reported.
#include <cstdint>
#include <functional>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace tqtest {

class TouchScenes {
public:
    using Dead = std::function<bool(std::int32_t x, std::int32_t y)>;

    TouchScenes(const rawkit::TouchLayout& layout, unsigned rows, Dead dead = nullptr);

    TouchScenes& sweep();
    TouchScenes& fingers(unsigned most);   // two, then three... up to most, each moving 1.2 s, ids from 0
    TouchScenes& rest(double trembleUnits, double across = 0.5);   // 2.4 s, trembling at 10 Hz
    TouchScenes& click(double across);     // a click with a finger that far across the pad
    // The frames, each a complete scan.
    const std::vector<rawkit::TouchFrame>& frames() const { return m_frames; }

private:
    void frame(std::vector<rawkit::ContactReport> contacts, std::uint8_t buttons = 0);
    rawkit::ContactReport at(double fx, double fy, std::int32_t dx = 0, std::int32_t dy = 0);
    void lift();

    rawkit::TouchLayout m_layout;
    unsigned m_rows;
    Dead m_dead;
    std::vector<rawkit::TouchFrame> m_frames;
    std::int64_t m_timeUs = 0;
};

}  // namespace tqtest
