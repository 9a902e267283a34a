#include "touchq/PadClicks.h"

namespace touchq {

namespace {

constexpr std::uint8_t kFirst = 0x1;
constexpr std::uint8_t kSecond = 0x2;
constexpr std::uint8_t kOthers = 0x6;

}  // namespace

PadClicks::PadClicks(const rawkit::ValueRange& x) : m_middle(static_cast<std::int64_t>(x.low) + x.high) {}

void PadClicks::add(std::uint8_t buttons, const std::vector<rawkit::ContactTracker::Finger>& fingers)
{
    const std::uint8_t pressed = buttons & ~m_buttons;
    const std::uint8_t released = m_buttons & ~buttons;
    m_buttons = buttons;
    m_separate = m_separate || (buttons & kOthers) != 0;
    if ((pressed & kFirst) != 0) {
        m_pressedIn = fingers.empty()                                          ? Half::None
                      : 2 * static_cast<std::int64_t>(fingers.front().contact.x) < m_middle ? Half::Left
                                                                                           : Half::Right;
    }
    if ((released & kFirst) != 0) {
        ++m_clicks;
        m_leftHalf = m_leftHalf || m_pressedIn == Half::Left;
        m_rightHalf = m_rightHalf || m_pressedIn == Half::Right;
    }
    m_secondClicked = m_secondClicked || (released & kSecond) != 0;
}

bool PadClicks::done() const
{
    return m_separate ? m_clicks > 0 && m_secondClicked : m_leftHalf && m_rightHalf;
}

}  // namespace touchq
