#include "MissingChecks.h"

std::vector<MissingChecks::Check> MissingChecks::of(const Demands& demands, const Mouse& mouse, bool doubleClickDone,
                                                     bool dragDropDone)
{
    std::vector<Check> missing;
    const auto untested = [&mouse](Mouse::Control control) { return mouse.state[control] == Untested; };
    const auto unseen = [&mouse](Mouse::Control control) { return mouse.state[control] < Seen; };
    if ((demands.leftClick && unseen(Mouse::LeftButton)) || (demands.allControls && untested(Mouse::LeftButton))) {
        missing.push_back(LeftButton);
    }
    if ((demands.rightClick && unseen(Mouse::RightButton)) || (demands.allControls && untested(Mouse::RightButton))) {
        missing.push_back(RightButton);
    }
    // An absent control is not demanded; one that is present must have been used.
    if (demands.allControls && untested(Mouse::MiddleButton)) {
        missing.push_back(MiddleButton);
    }
    if (demands.allControls && untested(Mouse::VerticalWheel)) {
        missing.push_back(Wheel);
    }
    if (demands.allControls && untested(Mouse::HorizontalWheel)) {
        missing.push_back(Tilt);
    }
    if (demands.doubleClick && !doubleClickDone) {
        missing.push_back(DoubleClick);
    }
    if (demands.dragAndDrop && !dragDropDone) {
        missing.push_back(DragAndDrop);
    }
    return missing;
}
