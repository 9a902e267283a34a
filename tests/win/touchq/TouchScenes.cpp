#include "TouchScenes.h"

#include <cmath>

namespace tqtest {

namespace {

constexpr std::int64_t kFrameUs = 8000;

}  // namespace

TouchScenes::TouchScenes(const rawkit::TouchLayout& layout, unsigned rows, Dead dead)
    : m_layout(layout), m_rows(rows), m_dead(std::move(dead))
{
}

void TouchScenes::frame(std::vector<rawkit::ContactReport> contacts, std::uint8_t buttons)
{
    std::erase_if(contacts, [this](const rawkit::ContactReport& c) { return m_dead && m_dead(c.x, c.y); });
    m_frames.push_back(rawkit::TouchFrame{m_timeUs, std::move(contacts), buttons, std::nullopt});
    m_timeUs += kFrameUs;
}

rawkit::ContactReport TouchScenes::at(double fx, double fy, std::int32_t dx, std::int32_t dy)
{
    rawkit::ContactReport contact;
    contact.id = 0;   // a pad gives a contact the lowest id free; the Elan pad declares 0 to 2
    contact.tip = true;
    contact.x = m_layout.x.low + static_cast<std::int32_t>(std::lround(fx * (m_layout.x.high - m_layout.x.low))) + dx;
    contact.y = m_layout.y.low + static_cast<std::int32_t>(std::lround(fy * (m_layout.y.high - m_layout.y.low))) + dy;
    return contact;
}

void TouchScenes::lift()
{
    frame({});
    m_timeUs += 100000;
}

TouchScenes& TouchScenes::sweep()
{
    for (unsigned row = 0; row < m_rows; ++row) {
        for (double fx = 0.0; fx <= 1.0; fx += 0.01) {
            frame({at(fx, (row + 0.5) / m_rows)});
        }
        lift();
    }
    return *this;
}

TouchScenes& TouchScenes::fingers(unsigned most)
{
    for (unsigned count = 2; count <= most; ++count) {
        for (std::int32_t n = 0; n < 150; ++n) {
            std::vector<rawkit::ContactReport> contacts;
            for (unsigned f = 0; f < count; ++f) {
                contacts.push_back(at(0.1 + 0.15 * f, 0.3, 0, n));
                contacts.back().id = f;
            }
            frame(contacts);
        }
        lift();
    }
    return *this;
}

TouchScenes& TouchScenes::rest(double trembleUnits, double across)
{
    for (int n = 0; n < 300; ++n) {
        // Trembling at 10 Hz: a full swing every 12.5 frames.
        const double swing = trembleUnits * std::sin(2.0 * 3.14159265358979 * n / 12.5);
        frame({at(across, 0.5, static_cast<std::int32_t>(std::lround(swing)))});
    }
    lift();
    return *this;
}

TouchScenes& TouchScenes::click(double across)
{
    frame({at(across, 0.9)});
    frame({at(across, 0.9)}, 1);
    frame({at(across, 0.9)}, 1);
    frame({at(across, 0.9)});
    lift();
    return *this;
}

}  // namespace tqtest
