#pragma once
// The classic test's left and right buttons as the dialog receives them: the primary and the
// secondary button (swapped for a left-handed mouse), and both held at once standing in for the
// middle button, except on the picture set without one.
#include "Mouse.h"

class ButtonChords {
public:
    // What a press or release did to the mouse's states.
    enum class Effect {
        None,    // a chord on the picture set without a middle button: nothing
        Chord,   // the two buttons together pressed or let go of the middle
        Own,     // the button's own press or release
    };

    Effect leftDown(Mouse& mouse);
    Effect leftUp(Mouse& mouse);
    Effect rightDown(Mouse& mouse);
    Effect rightUp(Mouse& mouse);

    bool leftHeld() const { return m_leftDown; }
    bool rightHeld() const { return m_rightDown; }
    // A chord stood in for the middle button at least once.
    bool middleMimicked() const { return m_middleMimicked; }

private:
    static std::uint32_t& primary(Mouse& mouse);
    static std::uint32_t& secondary(Mouse& mouse);
    // The other button is held: the chord's effect on the middle, `pressed` or let go of.
    static Effect chord(Mouse& mouse, bool pressed);

    bool m_leftDown = false;
    bool m_rightDown = false;
    bool m_middleMimicked = false;
};
