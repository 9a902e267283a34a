// A replay's frames due on the recording's clock: paced, unpaced and in laps.
#include <gtest/gtest.h>

#include "touchq/FrameReplay.h"

using rawkit::TouchFrame;
using touchq::FrameReplay;

namespace {

std::vector<TouchFrame> frames(std::initializer_list<std::int64_t> times)
{
    std::vector<TouchFrame> out;
    for (const std::int64_t t : times) {
        out.push_back(TouchFrame{t, {}, 0, std::nullopt});
    }
    return out;
}

}  // namespace

TEST(FrameReplay, PacedFramesComeAtTheirTimeOverTheSpeedAndKeepTheirRecordedTimes)
{
    FrameReplay replay(frames({0, 8000, 16000}), 2.0, false);
    ASSERT_TRUE(replay.take(0));
    EXPECT_EQ(replay.nextDueUs(), 4000);
    EXPECT_FALSE(replay.take(3999));
    const auto second = replay.take(4500);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->timeUs, 8000) << "the device's time, not the replay's";
    EXPECT_EQ(replay.positionUs(5000), 10000);
    ASSERT_TRUE(replay.take(9000));
    EXPECT_TRUE(replay.over());
    EXPECT_FALSE(replay.take(1000000));
    EXPECT_EQ(replay.positionUs(1000000), 2000000) << "the recording's clock runs on after its last frame";
}

TEST(FrameReplay, UnpacedFramesComeAtOnceAndTheClockRunsOnFromTheLastOne)
{
    FrameReplay replay(frames({1000, 2000, 30000}), 0.0, false);
    for (int n = 0; n < 3; ++n) {
        ASSERT_TRUE(replay.take(50));
    }
    EXPECT_TRUE(replay.over());
    EXPECT_EQ(replay.positionUs(1050), 31000);
}

TEST(FrameReplay, LapsFollowEachOtherOnOneClock)
{
    FrameReplay replay(frames({1000, 5000}), 1.0, true);
    std::vector<std::int64_t> times;
    for (int n = 0; n < 5; ++n) {
        times.push_back(replay.take(100000)->timeUs);
    }
    EXPECT_EQ(times, (std::vector<std::int64_t>{1000, 5000, 6000, 10000, 11000}));
    EXPECT_FALSE(replay.over());

    FrameReplay instant(frames({0}), 1.0, true);
    ASSERT_TRUE(instant.take(0));
    EXPECT_TRUE(instant.over()) << "laps of no length do not loop";
    FrameReplay empty({}, 1.0, true);
    EXPECT_TRUE(empty.over());
}
