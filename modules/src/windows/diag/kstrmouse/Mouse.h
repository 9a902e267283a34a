#pragma once
// What the attached mouse offers, and how far the test has exercised each of its controls.
#include <cstdint>

enum MouseControlState : std::uint32_t {
    Absent = 0,    // the mouse has no such control
    Untested = 1,  // present, not exercised yet
    Seen = 2,      // pressed and released / turned toward the user / tilted that way
    Active = 3,    // held now / turned away from the user
};

class Mouse {
public:
    // Index of each control in `state`.
    // Each tilt direction and each side button is a control of its own: one of them used says
    // nothing of the other.
    enum Control {
        LeftButton = 0,
        RightButton,
        MiddleButton,
        VerticalWheel,
        TiltLeft,
        TiltRight,
        BackButton,     // the first side button (XBUTTON1)
        ForwardButton,  // the second side button (XBUTTON2)
        ControlCount
    };

    virtual ~Mouse() = default;
    // Asks the system what the mouse offers; false when there is no mouse.
    virtual bool probe() = 0;

    std::uint32_t buttonCount = 0;
    bool buttonsSwapped = false;
    std::uint32_t mouseType = 0;  // picture set: 1 without a wheel, 3 with one
    std::uint32_t state[ControlCount] = {Absent, Absent, Absent, Absent, Absent, Absent, Absent, Absent};
};
