#include "MissingChecks.h"

std::vector<MissingChecks::Check> MissingChecks::of(const Demands& demands, const Mouse& mouse, bool doubleClickDone,
                                                     bool dragDropDone)
{
    std::vector<Check> missing;
    const auto untested = [&mouse](Mouse::Control control) { return mouse.state[control] == Untested; };
    const auto unseen = [&mouse](Mouse::Control control) { return mouse.state[control] < Seen; };
    const auto demand = [&missing](bool demanded, Check check) {
        if (demanded) {
            missing.push_back(check);
        }
    };
    demand((demands.leftClick && unseen(Mouse::LeftButton)) || (demands.allControls && untested(Mouse::LeftButton)),
           LeftButton);
    demand((demands.rightClick && unseen(Mouse::RightButton)) || (demands.allControls && untested(Mouse::RightButton)),
           RightButton);
    // An absent control is not demanded; one that is present must have been used.
    demand(demands.allControls && untested(Mouse::MiddleButton), MiddleButton);
    demand(demands.allControls && untested(Mouse::VerticalWheel), Wheel);
    demand(demands.allControls && untested(Mouse::TiltLeft), TiltLeft);
    demand(demands.allControls && untested(Mouse::TiltRight), TiltRight);
    // Asked for by name, the side buttons are demanded even where the system counts fewer
    // buttons: counts are often wrong, and the one asking knows the model.
    demand(demands.sideButtons && unseen(Mouse::BackButton), BackButton);
    demand(demands.sideButtons && unseen(Mouse::ForwardButton), ForwardButton);
    demand(demands.doubleClick && !doubleClickDone, DoubleClick);
    demand(demands.dragAndDrop && !dragDropDone, DragAndDrop);
    return missing;
}
