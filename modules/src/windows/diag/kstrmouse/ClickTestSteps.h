#pragma once
// The click test's steps without a window: which step follows which in each layout, the number
// the user sees, which button a step wants, what completing it shows and how long that stays,
// the middle button's Skip, the wheel bar's goals and the verdict. Steps are numbered 1 to 9
// (left, right, middle, side button 1, side button 2, double click, drag, wheel up, wheel down);
// the default layout leaves out 4 and 5.
#include "harn5/TestResult.h"

class ClickTestSteps {
public:
    static constexpr int kSteps = 9;
    static constexpr unsigned kPauseMs = 1000;

    enum class Button { Left, Right, Middle, X1, X2 };

    // What completing the current step shows, and what comes after.
    struct Completion {
        bool mouseArea;     // `shows` takes the mouse area's place (0: the area goes blank)
        int shows;          // the success picture's control
        int hides;          // outside the mouse area: the control it replaces
        unsigned pauseMs;   // how long it stays before the next step; input meanwhile is no step's
        bool ends;          // the last step: the test is over
    };

    // The wheel bar after a notch: whether it turns to its full colour and completes the step.
    struct WheelNotch {
        bool fullColour;
        bool done;
    };

    explicit ClickTestSteps(bool gaming);

    int index() const { return m_index; }
    bool gaming() const { return m_gaming; }
    // "Step n of count" as the user sees it: without side buttons the later steps are two lower.
    int shownNumber() const;
    int shownCount() const;

    // Steps 1 to 5: whether this button's press and release are the step's. Side button 1 is
    // the second extended button.
    bool isStepButton(Button button) const;
    // The mouse picture while the step's button is held; 0 at steps without one.
    int pressedPicture() const;

    // The middle button is read as required or not when step 2 completes.
    void setMiddleRequired(bool required) { m_middleRequired = required; }
    bool middleRequired() const { return m_middleRequired; }
    bool offersSkip() const;
    bool middleSkipped() const { return m_middleSkipped; }
    // Skip, completing the middle-button step; false (nothing changes) where it is not offered.
    bool skip();

    // The current step is done: the next one is current from now on.
    Completion complete();
    // Judged on the bar's position after a notch up at step 8, before a notch down at step 9.
    static WheelNotch wheelUp(int positionAfter);
    static WheelNotch wheelDown(int positionBefore);

    // Fail: the step whose event is raised (the one on screen).
    int fail();
    void cancel();
    // PASS only once every step of the run is done; FAIL, USERABORTED as the user ended it;
    // CANNOTRUN while the test is under way.
    const harn5::TestResult& verdict() const { return m_verdict; }
    bool finished() const { return m_finished; }

private:
    int next() const;
    int successPicture() const;

    bool m_gaming;
    int m_index = 1;
    bool m_middleRequired = false;
    bool m_middleSkipped = false;
    bool m_finished = false;
    harn5::TestResult m_verdict = harn5::TestResult::CANNOTRUN();
};
