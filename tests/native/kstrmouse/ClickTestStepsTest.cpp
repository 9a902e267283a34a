// The click test's step machine: the order and numbering of each layout, the pause after each
// step, which button each step wants, Skip, the wheel goals and a verdict that is PASS only at
// the end. (What each step shows is checked on the dialog itself.)
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ClickTestSteps.h"

namespace {

using Button = ClickTestSteps::Button;
using harn5::TestResult;

struct Visit {
    int index;
    std::string shown;
    unsigned pauseMs;
};

bool operator==(const Visit& a, const Visit& b)
{
    return a.index == b.index && a.shown == b.shown && a.pauseMs == b.pauseMs;
}

void PrintTo(const Visit& v, std::ostream* os)
{
    *os << v.index << " (" << v.shown << ", pause " << v.pauseMs << ")";
}

// Every step done in turn: where the run went, as the user saw it.
std::vector<Visit> walk(ClickTestSteps& steps, bool skipMiddle)
{
    std::vector<Visit> visits;
    while (!steps.finished()) {
        const int index = steps.index();
        const std::string shown = std::to_string(steps.shownNumber()) + " of " + std::to_string(steps.shownCount());
        EXPECT_EQ(steps.verdict(), TestResult::CANNOTRUN()) << "no verdict while steps are left, at " << index;
        if (index == 3 && skipMiddle) {
            EXPECT_TRUE(steps.skip());
        }
        visits.push_back({index, shown, steps.complete().pauseMs});
    }
    return visits;
}

TEST(ClickTestSteps, EachLayoutVisitsItsStepsAndPassesOnlyAtTheEnd)
{
    ClickTestSteps normal(false);
    EXPECT_EQ(walk(normal, false), (std::vector<Visit>{{1, "1 of 7", 0},
                                                       {2, "2 of 7", 0},
                                                       {3, "3 of 7", 1000},
                                                       {6, "4 of 7", 1000},
                                                       {7, "5 of 7", 1000},
                                                       {8, "6 of 7", 1000},
                                                       {9, "7 of 7", 1000}}));
    EXPECT_EQ(normal.verdict(), TestResult::PASS());

    ClickTestSteps gaming(true);
    EXPECT_EQ(walk(gaming, false), (std::vector<Visit>{{1, "1 of 9", 0},
                                                       {2, "2 of 9", 0},
                                                       {3, "3 of 9", 0},
                                                       {4, "4 of 9", 0},
                                                       {5, "5 of 9", 1000},
                                                       {6, "6 of 9", 1000},
                                                       {7, "7 of 9", 1000},
                                                       {8, "8 of 9", 1000},
                                                       {9, "9 of 9", 1000}}));
    EXPECT_EQ(gaming.verdict(), TestResult::PASS());
}

TEST(ClickTestSteps, SkippedMiddleEndsAfterTheDropInBothLayouts)
{
    ClickTestSteps normal(false);
    const std::vector<Visit> visits = walk(normal, true);
    ASSERT_EQ(visits.size(), 5u);
    EXPECT_EQ(visits.back(), (Visit{7, "5 of 7", 1000}));
    EXPECT_TRUE(normal.middleSkipped());
    EXPECT_EQ(normal.verdict(), TestResult::PASS());

    ClickTestSteps gaming(true);
    EXPECT_EQ(walk(gaming, true).back(), (Visit{7, "7 of 9", 1000}));
}

TEST(ClickTestSteps, SkipOnlyAtAMiddleStepThatIsNotRequired)
{
    ClickTestSteps steps(false);
    EXPECT_FALSE(steps.skip()) << "step 1";
    steps.complete();
    steps.complete();
    steps.setMiddleRequired(true);
    EXPECT_FALSE(steps.offersSkip());
    EXPECT_FALSE(steps.skip());
    EXPECT_FALSE(steps.middleSkipped());
    steps.setMiddleRequired(false);
    EXPECT_TRUE(steps.offersSkip());
    EXPECT_EQ(steps.index(), 3);
}

TEST(ClickTestSteps, OnlyTheStepsButtonCountsAndSideButtonOneIsTheSecond)
{
    ClickTestSteps steps(true);
    const std::vector<std::vector<Button>> wanted = {
        {Button::Left}, {Button::Right}, {Button::Middle}, {Button::X2}, {Button::X1}, {}, {}, {}, {}};
    for (const std::vector<Button>& buttons : wanted) {
        SCOPED_TRACE(steps.index());
        for (const Button b : {Button::Left, Button::Right, Button::Middle, Button::X1, Button::X2}) {
            const bool expected = !buttons.empty() && buttons.front() == b;
            EXPECT_EQ(steps.isStepButton(b), expected);
        }
        EXPECT_EQ(steps.pressedPicture() != 0, !buttons.empty());
        steps.complete();
    }
}

TEST(ClickTestSteps, FailNamesTheStepOnScreenAndCancelAborts)
{
    ClickTestSteps failed(false);
    failed.complete();
    failed.complete();
    failed.complete();
    EXPECT_EQ(failed.fail(), 6);
    EXPECT_EQ(failed.verdict(), TestResult::FAIL());
    EXPECT_TRUE(failed.finished());

    ClickTestSteps cancelled(true);
    cancelled.complete();
    cancelled.cancel();
    EXPECT_EQ(cancelled.verdict(), TestResult::USERABORTED());
}

TEST(ClickTestSteps, WheelGoalsOnTheBarsPositions)
{
    // Up: judged after the notch; the bar goes 0, 13, ... 91, 100.
    EXPECT_FALSE(ClickTestSteps::wheelUp(78).fullColour);
    EXPECT_TRUE(ClickTestSteps::wheelUp(91).fullColour);
    EXPECT_FALSE(ClickTestSteps::wheelUp(99).done);
    EXPECT_TRUE(ClickTestSteps::wheelUp(100).done);
    // Down: judged before the notch; the bar reads 100, 87, ... 9, 0.
    EXPECT_FALSE(ClickTestSteps::wheelDown(22).fullColour);
    EXPECT_TRUE(ClickTestSteps::wheelDown(9).fullColour);
    EXPECT_FALSE(ClickTestSteps::wheelDown(9).done);
    EXPECT_TRUE(ClickTestSteps::wheelDown(0).done);
    EXPECT_TRUE(ClickTestSteps::wheelDown(2).done);
}

}  // namespace
