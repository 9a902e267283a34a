#include "ButtonChords.h"

namespace {

// The picture set without a middle button takes no chords.
constexpr std::uint32_t kTwoButtonPictures = 1;

}  // namespace

ButtonChords::Effect ButtonChords::leftDown(Mouse& mouse)
{
    m_leftDown = true;
    if (m_rightDown) {
        if (mouse.mouseType == kTwoButtonPictures) {
            return Effect::None;
        }
        m_middleMimicked = true;
        secondary(mouse) = Seen;
        return chord(mouse, true);
    }
    primary(mouse) = Active;
    return Effect::Own;
}

ButtonChords::Effect ButtonChords::leftUp(Mouse& mouse)
{
    m_leftDown = false;
    if (m_rightDown) {
        return mouse.mouseType == kTwoButtonPictures ? Effect::None : chord(mouse, false);
    }
    primary(mouse) = Seen;
    return Effect::Own;
}

ButtonChords::Effect ButtonChords::rightDown(Mouse& mouse)
{
    m_rightDown = true;
    if (m_leftDown) {
        if (mouse.mouseType == kTwoButtonPictures) {
            return Effect::None;
        }
        m_middleMimicked = true;
        primary(mouse) = Seen;
        return chord(mouse, true);
    }
    secondary(mouse) = Active;
    return Effect::Own;
}

ButtonChords::Effect ButtonChords::rightUp(Mouse& mouse)
{
    m_rightDown = false;
    if (m_leftDown) {
        return mouse.mouseType == kTwoButtonPictures ? Effect::None : chord(mouse, false);
    }
    secondary(mouse) = Seen;
    return Effect::Own;
}

std::uint32_t& ButtonChords::primary(Mouse& mouse)
{
    return mouse.state[mouse.buttonsSwapped ? Mouse::RightButton : Mouse::LeftButton];
}

std::uint32_t& ButtonChords::secondary(Mouse& mouse)
{
    return mouse.state[mouse.buttonsSwapped ? Mouse::LeftButton : Mouse::RightButton];
}

ButtonChords::Effect ButtonChords::chord(Mouse& mouse, bool pressed)
{
    mouse.state[Mouse::MiddleButton] = pressed ? Active : Seen;
    return Effect::Chord;
}
