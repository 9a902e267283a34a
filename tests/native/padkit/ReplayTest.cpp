#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "padkit/DeviceRegistry.h"
#include "padkit/ReplayClock.h"
#include "padkit/ReplayCursor.h"
#include "padkit/SessionError.h"
#include "padkit/SynapticsHelper.h"

using padkit::ReplayClock;
using padkit::ReplayCursor;
using padkit::Session;

namespace {

// A file of packets at these times (x numbers them), read a packet a call like a real one; a
// time below 0 is a fault of the file at that place.
class TimesSource : public padkit::PacketSource {
public:
    explicit TimesSource(std::vector<std::int64_t> times) : m_times(std::move(times)) {}
    const Session& header() const override { return m_header; }
    bool next(padkit::Packet& packet) override
    {
        if (m_next == m_times.size()) {
            return false;
        }
        if (m_times[m_next] < 0) {
            throw padkit::SessionError(padkit::SessionError::Reason::Invalid,
                                       "pad.hid:" + std::to_string(m_next + 1) + ": broken");
        }
        packet = {.timeMs = m_times[m_next], .x = static_cast<std::int32_t>(m_next)};
        ++m_next;
        return true;
    }
    const rawkit::TouchFrame* frame() const override { return nullptr; }
    unsigned long malformedFrames() const override { return 0; }
    unsigned contactsPerReport() const override { return 0; }

private:
    Session m_header;
    std::vector<std::int64_t> m_times;
    std::size_t m_next = 0;
};

// Opens whatever the file holds when it is opened.
ReplayCursor::Opener file(const std::vector<std::int64_t>& times)
{
    return [&times] { return std::make_unique<TimesSource>(times); };
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
    const std::vector<std::int64_t> times = {5, 13, 13, 40};
    ReplayCursor paced(file(times), *ReplayClock::atSpeed(2.0), false);
    EXPECT_EQ(paced.current(), nullptr);
    EXPECT_EQ(paced.delayToNext(), 2.5);   // the first packet counts from the start
    EXPECT_EQ(paced.advance(), 0);
    EXPECT_EQ(walk(paced, 10), (Steps{{4.0, 1}, {0.0, 2}, {13.5, 3}}));
    EXPECT_EQ(paced.current()->x, 3);   // the last packet stays readable after the end

    const std::vector<std::int64_t> two = {5, 40};
    ReplayCursor unpaced(file(two), ReplayClock::unpaced(), false);
    EXPECT_EQ(walk(unpaced, 10), (Steps{{0, 0}, {0, 1}}));

    // A new lap reads the file again, its first packet its own time after the last.
    const std::vector<std::int64_t> lap = {10, 30};
    ReplayCursor looped(file(lap), ReplayClock(), true);
    EXPECT_EQ(walk(looped, 5), (Steps{{10, 0}, {20, 1}, {10, 0}, {20, 1}, {10, 0}}));

    const std::vector<std::int64_t> none;
    ReplayCursor silent(file(none), ReplayClock(), true);
    EXPECT_FALSE(silent.delayToNext().has_value());
}

TEST(ReplayCursor, ReopenCarriesOnAfterTheSamePacket)
{
    std::vector<std::int64_t> times = {0, 10, 20, 30};
    ReplayCursor cursor(file(times), ReplayClock(), false);
    walk(cursor, 2);
    times = {0, 10, 25, 30};
    cursor.reopen();
    EXPECT_EQ(walk(cursor, 1), (Steps{{15.0, 2}}));
    times = {0};   // shorter than the position: over
    cursor.reopen();
    EXPECT_FALSE(cursor.delayToNext().has_value());

    std::vector<std::int64_t> lap = {0, 10, 20};
    ReplayCursor looped(file(lap), ReplayClock(), true);
    walk(looped, 3);
    lap = {7, 9};   // shorter, looping: the next lap
    looped.reopen();
    EXPECT_EQ(walk(looped, 1), (Steps{{7.0, 0}}));
    lap = {};
    looped.reopen();
    EXPECT_FALSE(looped.delayToNext().has_value());
}

TEST(ReplayCursor, AFaultLaterInTheFileEndsTheReplayAfterTheLastGoodPacket)
{
    const std::vector<std::int64_t> times = {0, 10, -1, 30};
    ReplayCursor cursor(file(times), ReplayClock(), true);
    EXPECT_EQ(walk(cursor, 10), (Steps{{0, 0}, {10, 1}}));
    EXPECT_EQ(cursor.fault(), "pad.hid:3: broken");
    EXPECT_EQ(cursor.current()->x, 1);

    const std::vector<std::int64_t> first = {-1};
    ReplayCursor atOnce(file(first), ReplayClock(), false);
    EXPECT_FALSE(atOnce.delayToNext());
    EXPECT_EQ(atOnce.fault(), "pad.hid:1: broken");
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
