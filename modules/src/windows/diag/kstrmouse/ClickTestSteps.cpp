#include "ClickTestSteps.h"

#include "resource.h"

namespace {

constexpr int kDefaultSteps = 7;
constexpr int kFirstStepAfterSideButtons = 6;
constexpr int kWheelUpFullColourAt = 90;
constexpr int kWheelUpDoneAt = 100;
constexpr int kWheelDownFullColourAt = 10;
constexpr int kWheelDownDoneAt = 2;

}  // namespace

ClickTestSteps::ClickTestSteps(bool gaming) : m_gaming(gaming) {}

int ClickTestSteps::shownNumber() const
{
    return m_gaming || m_index < kFirstStepAfterSideButtons ? m_index : m_index - 2;
}

int ClickTestSteps::shownCount() const
{
    return m_gaming ? kSteps : kDefaultSteps;
}

bool ClickTestSteps::isStepButton(Button button) const
{
    switch (m_index) {
    case 1: return button == Button::Left;
    case 2: return button == Button::Right;
    case 3: return button == Button::Middle;
    case 4: return button == Button::X2;
    case 5: return button == Button::X1;
    default: return false;
    }
}

int ClickTestSteps::pressedPicture() const
{
    switch (m_index) {
    case 1: return IDC_CT_LEFT_PRESSED;
    case 2: return IDC_CT_RIGHT_PRESSED;
    case 3: return IDC_CT_MIDDLE_PRESSED;
    case 4: return m_middleSkipped ? IDC_CT_SIDE1_PRESSED_SKIPPED : IDC_CT_SIDE1_PRESSED;
    case 5: return m_middleSkipped ? IDC_CT_SIDE2_PRESSED_SKIPPED : IDC_CT_SIDE2_PRESSED;
    default: return 0;
    }
}

bool ClickTestSteps::offersSkip() const
{
    return m_index == 3 && !m_middleRequired && !m_finished;
}

bool ClickTestSteps::skip()
{
    if (!offersSkip()) {
        return false;
    }
    m_middleSkipped = true;
    return true;
}

ClickTestSteps::Completion ClickTestSteps::complete()
{
    Completion done{};
    done.mouseArea = m_index <= 5;
    done.shows = successPicture();
    switch (m_index) {
    case 6: done.hides = IDC_CT_DOUBLE_CLICK_TARGET; break;
    case 7: done.hides = IDC_CT_DROP_AREA; break;
    case 8:
    case 9: done.hides = IDC_CT_WHEEL_BAR; break;
    default: break;
    }
    // The mouse area's first three steps follow each other at once, as do the two side buttons;
    // a success picture elsewhere stays a moment so that it can be seen.
    const bool quick = m_index == 1 || m_index == 2 || m_index == 4 || (m_index == 3 && m_gaming);
    done.pauseMs = quick ? 0 : kPauseMs;
    const int following = next();
    done.ends = following == 0;
    if (done.ends) {
        m_finished = true;
        m_verdict = harn5::TestResult::PASS();
    } else {
        m_index = following;
    }
    return done;
}

int ClickTestSteps::next() const
{
    switch (m_index) {
    case 3: return m_gaming ? 4 : kFirstStepAfterSideButtons;
    case 7: return m_middleSkipped ? 0 : 8;
    case 9: return 0;
    default: return m_index + 1;
    }
}

int ClickTestSteps::successPicture() const
{
    switch (m_index) {
    case 1: return IDC_CT_LEFT_SUCCESS;
    case 2: return IDC_CT_RIGHT_SUCCESS;
    case 3:
        if (m_middleSkipped) {
            // The gaming pictures have no skipped middle of their own: the area goes blank.
            return m_gaming ? 0 : IDC_CT_MIDDLE_SKIPPED;
        }
        return IDC_CT_MIDDLE_SUCCESS;
    case 4: return m_middleSkipped ? IDC_CT_SIDE1_SUCCESS_SKIPPED : IDC_CT_SIDE1_SUCCESS;
    case 5: return m_middleSkipped ? IDC_CT_SIDE2_SUCCESS_SKIPPED : IDC_CT_SIDE2_SUCCESS;
    case 6: return IDC_CT_DOUBLE_CLICK_SUCCESS;
    case 7: return IDC_CT_DROP_SUCCESS;
    default: return IDC_CT_WHEEL_SUCCESS;
    }
}

ClickTestSteps::WheelNotch ClickTestSteps::wheelUp(int positionAfter)
{
    return {positionAfter >= kWheelUpFullColourAt, positionAfter >= kWheelUpDoneAt};
}

ClickTestSteps::WheelNotch ClickTestSteps::wheelDown(int positionBefore)
{
    return {positionBefore <= kWheelDownFullColourAt, positionBefore <= kWheelDownDoneAt};
}

int ClickTestSteps::fail()
{
    m_finished = true;
    m_verdict = harn5::TestResult::FAIL();
    return m_index;
}

void ClickTestSteps::cancel()
{
    m_finished = true;
    m_verdict = harn5::TestResult::USERABORTED();
}
