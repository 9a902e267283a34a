#pragma once
// Which of the checks the parameters demand of the classic test are still to be done: the one
// rule behind both Pass and the line that tells the user what is left.
#include <vector>

#include "Mouse.h"

class MissingChecks {
public:
    enum Check {
        LeftButton,
        RightButton,
        MiddleButton,
        Wheel,
        TiltLeft,
        TiltRight,
        BackButton,
        ForwardButton,
        DoubleClick,
        DragAndDrop,
    };

    struct Demands {
        bool doubleClick = false;
        bool dragAndDrop = false;
        bool leftClick = false;
        bool rightClick = false;
        bool allControls = false;   // every control the mouse has, side buttons aside
        bool sideButtons = false;   // both side buttons, whatever the system counts
    };

    // In the order the line names them.
    static std::vector<Check> of(const Demands& demands, const Mouse& mouse, bool doubleClickDone, bool dragDropDone);
};
