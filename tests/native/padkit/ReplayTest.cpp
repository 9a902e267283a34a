#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

#include "padkit/DeviceRegistry.h"
#include "padkit/ReplayClock.h"
#include "padkit/ReplayCursor.h"
#include "padkit/SynapticsHelper.h"

using padkit::ReplayClock;
using padkit::ReplayCursor;
using padkit::Session;

namespace {

Session sessionAt(const std::vector<std::int64_t>& times)
{
    Session s;
    for (std::size_t i = 0; i < times.size(); ++i) {
        s.packets.push_back({.timeMs = times[i], .x = static_cast<std::int32_t>(i)});
    }
    return s;
}

// (delay, packet x) for each step the cursor takes, at most limit; sequences go up by one.
std::vector<std::pair<double, int>> walk(ReplayCursor& cursor, std::size_t limit)
{
    std::vector<std::pair<double, int>> steps;
    std::optional<long> last;
    while (steps.size() < limit && cursor.delayToNext()) {
        const double delay = *cursor.delayToNext();
        const long sequence = cursor.advance();
        EXPECT_TRUE(!last || sequence == *last + 1);
        last = sequence;
        steps.emplace_back(delay, cursor.current()->x);
    }
    return steps;
}

using Steps = std::vector<std::pair<double, int>>;

}  // namespace

TEST(ReplayClock, ParsesFactorsAndMax)
{
    EXPECT_DOUBLE_EQ(ReplayClock().wallMs(100), 100.0);
    EXPECT_DOUBLE_EQ(ReplayClock::parse("0.5")->wallMs(100), 200.0);
    EXPECT_TRUE(ReplayClock::parse("max")->isUnpaced());
    for (const char* bad : {"", "0", "-1", "1e3", "inf", "nan", "4x", " 4", "MAX"}) {
        EXPECT_FALSE(ReplayClock::parse(bad).has_value()) << bad;
    }
}

TEST(ReplayCursor, DelaysFollowTheRecordingScaledLoopedOrUnpaced)
{
    ReplayCursor paced(sessionAt({5, 13, 13, 40}), *ReplayClock::atSpeed(2.0), false);
    EXPECT_EQ(paced.current(), nullptr);
    EXPECT_EQ(paced.delayToNext(), 2.5);   // the first packet counts from the start
    EXPECT_EQ(paced.advance(), 0);
    EXPECT_EQ(walk(paced, 10), (Steps{{4.0, 1}, {0.0, 2}, {13.5, 3}}));
    EXPECT_EQ(paced.current()->x, 3);   // the last packet stays readable after the end

    ReplayCursor unpaced(sessionAt({5, 40}), ReplayClock::unpaced(), false);
    EXPECT_EQ(walk(unpaced, 10), (Steps{{0, 0}, {0, 1}}));

    // A new lap comes the first packet's own time after the last.
    ReplayCursor looped(sessionAt({10, 30}), ReplayClock(), true);
    EXPECT_EQ(walk(looped, 5), (Steps{{10, 0}, {20, 1}, {10, 0}, {20, 1}, {10, 0}}));

    ReplayCursor silent(sessionAt({}), ReplayClock(), true);
    EXPECT_FALSE(silent.delayToNext().has_value());
}

TEST(ReplayCursor, ReopenCarriesOnAfterTheSamePacket)
{
    ReplayCursor cursor(sessionAt({0, 10, 20, 30}), ReplayClock(), false);
    walk(cursor, 2);
    cursor.reopen(sessionAt({0, 10, 25, 30}));
    EXPECT_EQ(walk(cursor, 1), (Steps{{15.0, 2}}));
    cursor.reopen(sessionAt({0}));   // shorter than the position: over
    EXPECT_FALSE(cursor.delayToNext().has_value());

    ReplayCursor looped(sessionAt({0, 10, 20}), ReplayClock(), true);
    walk(looped, 3);
    looped.reopen(sessionAt({7, 9}));   // shorter, looping: the next lap
    EXPECT_EQ(walk(looped, 1), (Steps{{7.0, 0}}));
    looped.reopen(sessionAt({}));
    EXPECT_FALSE(looped.delayToNext().has_value());
}

TEST(DeviceRegistry, HandlesAreFreshAndTheHelperAnswersTheirType)
{
    padkit::DeviceRegistry& registry = padkit::DeviceRegistry::process();
    padkit::DeviceRegistry::Entry entry;
    entry.type = SynDeviceTrackpoint;
    const long stick = registry.add(entry);
    entry.type = static_cast<SynDeviceType>(3);
    const long odd = registry.add(entry);
    EXPECT_GT(stick, 0);
    EXPECT_EQ(SynapticsHelper::getDeviceType(stick), SynDeviceTrackpoint);
    EXPECT_EQ(SynapticsHelper::getDeviceType(odd), 3);
    EXPECT_EQ(SynapticsHelper::getDeviceType(-1), SynDeviceUnknown);
    registry.remove(stick);
    registry.remove(odd);
    EXPECT_EQ(SynapticsHelper::getDeviceType(stick), SynDeviceUnknown);
    const long next = registry.add(entry);
    EXPECT_NE(next, stick);   // a removed handle is not given out again
    EXPECT_NE(next, odd);
    registry.remove(next);
}
