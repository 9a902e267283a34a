#pragma once
// The pad's own click, pressed and released. A clickpad (one button, under the surface) must
// click in its left half and in its right half: its hinge and switch can fail on one side. A
// pad that reports a second button has buttons of its own, and each of the first two must click.
// The half of a click is that of the finger shown when it was pressed (the earliest down).
#include <cstdint>
#include <vector>

#include "rawkit/ContactTracker.h"

namespace touchq {

class PadClicks {
public:
    explicit PadClicks(const rawkit::ValueRange& x);

    // A frame's buttons, with the fingers down after it.
    void add(std::uint8_t buttons, const std::vector<rawkit::ContactTracker::Finger>& fingers);

    // A second or third button was seen: the pad has buttons of its own.
    bool separateButtons() const { return m_separate; }
    bool leftHalfClicked() const { return m_leftHalf; }
    bool rightHalfClicked() const { return m_rightHalf; }
    bool secondButtonClicked() const { return m_secondClicked; }
    // Every click the pad has was pressed and released.
    bool done() const;
    std::uint32_t clicks() const { return m_clicks; }   // of the first button

private:
    enum class Half { None, Left, Right };

    std::int64_t m_middle;   // twice the middle of X, to stay whole
    std::uint8_t m_buttons = 0;
    Half m_pressedIn = Half::None;
    bool m_separate = false;
    bool m_leftHalf = false;
    bool m_rightHalf = false;
    bool m_secondClicked = false;
    std::uint32_t m_clicks = 0;
};

}  // namespace touchq
