// When a touch device's removal counts: at once away from sleep, after a wait near it.
#include <gtest/gtest.h>

#include "RemovalWatch.h"

namespace {

constexpr std::int64_t kNear = RemovalWatch::kNearSleepMs;

TEST(RemovalWatch, StandsAtOnceAwayFromAnyBroadcast)
{
    RemovalWatch never;
    EXPECT_TRUE(never.removalStands(100));
    RemovalWatch longAgo;
    longAgo.onResume(1000);
    EXPECT_TRUE(longAgo.removalStands(1000 + kNear + 1));
    EXPECT_FALSE(longAgo.waiting());
}

TEST(RemovalWatch, NearAResumeWaitsItsTimeAfterTheLaterOfTheTwo)
{
    RemovalWatch watch;
    watch.onResume(1000);
    EXPECT_FALSE(watch.removalStands(1000 + kNear));
    EXPECT_TRUE(watch.waiting());
    EXPECT_FALSE(watch.waitOver(1000 + 2 * kNear)) << "counted from the removal";
    EXPECT_TRUE(watch.waitOver(1000 + 2 * kNear + 1));
    // A second resume while waiting gives the device its time again.
    watch.onResume(1000 + 2 * kNear);
    EXPECT_FALSE(watch.waitOver(1000 + 3 * kNear));
    EXPECT_TRUE(watch.waitOver(1000 + 3 * kNear + 1));
}

TEST(RemovalWatch, BetweenSuspendAndResumeTheWaitLastsUntilTheMachineWakes)
{
    RemovalWatch watch;
    watch.onSuspend(0);
    EXPECT_FALSE(watch.removalStands(10 * kNear)) << "still asleep, however long";
    EXPECT_FALSE(watch.waitOver(100 * kNear));
    watch.onResume(100 * kNear);
    EXPECT_FALSE(watch.waitOver(101 * kNear));
    EXPECT_TRUE(watch.waitOver(101 * kNear + 1));
}

TEST(RemovalWatch, ADeviceThatCameBackIsRemovedAfreshLater)
{
    RemovalWatch watch;
    watch.onResume(0);
    EXPECT_FALSE(watch.removalStands(10));
    watch.cameBack();
    EXPECT_FALSE(watch.waiting());
    EXPECT_FALSE(watch.waitOver(10 * kNear));
    EXPECT_TRUE(watch.removalStands(kNear + 1)) << "long after the resume: it is gone";
}

}  // namespace
