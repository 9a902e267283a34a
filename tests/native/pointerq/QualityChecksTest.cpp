#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "pointerq/QualityAnalysis.h"

using pointerq::ButtonChatter;
using pointerq::QualityAnalysis;
using pointerq::TimedReport;

namespace {

constexpr std::int64_t kMs = 1000;

TimedReport move(std::int64_t timeUs, std::int32_t dx, std::int32_t dy = 0)
{
    TimedReport report;
    report.timeUs = timeUs;
    report.mouse.dx = dx;
    report.mouse.dy = dy;
    return report;
}

TimedReport flags(std::int64_t timeUs, std::uint16_t buttonFlags, std::int16_t wheel = 0, std::int16_t hwheel = 0)
{
    TimedReport report;
    report.timeUs = timeUs;
    report.mouse.buttonFlags = buttonFlags;
    report.mouse.wheel = wheel;
    report.mouse.hwheel = hwheel;
    return report;
}

// Two clicks of the left button; gapUs from the first release to the second press.
void doubleClick(QualityAnalysis& analysis, std::int64_t startUs, std::int64_t gapUs)
{
    analysis.add(flags(startUs, 0x0001));
    analysis.add(flags(startUs + 60 * kMs, 0x0002));
    analysis.add(flags(startUs + 60 * kMs + gapUs, 0x0001));
    analysis.add(flags(startUs + 120 * kMs + gapUs, 0x0002));
}

QualityAnalysis::Settings defaults()
{
    return {};
}

}  // namespace

TEST(ButtonChatter, BounceIsFlaggedAndADoubleClickAtHumanPaceIsNot)
{
    struct Case {
        std::int64_t gapUs;
        bool chatter;
    };
    for (const Case c : {Case{3 * kMs, true}, Case{10 * kMs, true}, Case{25 * kMs, true}, Case{120 * kMs, false},
                         Case{40 * kMs, false}}) {
        QualityAnalysis analysis(defaults());
        doubleClick(analysis, 0, c.gapUs);
        const ButtonChatter::Counts& left = analysis.buttons().counts(ButtonChatter::Left);
        EXPECT_EQ(left.presses, 2U);
        EXPECT_EQ(left.chatter, c.chatter ? 1U : 0U) << c.gapUs;
        const auto found = analysis.findings(0);
        ASSERT_EQ(found.size(), c.chatter ? 1U : 0U) << c.gapUs;
        if (c.chatter) {
            EXPECT_EQ(*left.shortestGapUs, c.gapUs);
            EXPECT_EQ(found[0].event, "BUTTON_CHATTER_DETECTED");
            EXPECT_EQ(found[0].detail.rfind("left button: 1 of 2 presses", 0), 0U) << found[0].detail;
        }
    }
    // Another button's release does not make a press chatter.
    QualityAnalysis analysis(defaults());
    analysis.add(flags(0, 0x0004 | 0x0008));   // right down and up
    analysis.add(flags(2 * kMs, 0x0001));      // left down
    EXPECT_EQ(analysis.buttons().counts(ButtonChatter::Left).chatter, 0U);
}

TEST(WheelReversal, AStrayNotchAfterARunIsFoundOnlyInsideTheWindow)
{
    const auto run = [](std::vector<int> notches, std::int64_t spacingUs) {
        pointerq::WheelReversal wheel;
        std::int64_t time = 0;
        for (const int notch : notches) {
            wheel.add(time += spacingUs, notch * 120);
        }
        return wheel.reversals();
    };
    EXPECT_EQ(run({1, 1, 1, -1, 1, 1}, 20 * kMs), 1U);            // up up up DOWN up up
    EXPECT_EQ(run({1, 1, 1, -1, 1, 1}, 200 * kMs), 0U);           // the same, slowly: a person turning back
    EXPECT_EQ(run({1, 1, -1, 1, 1}, 20 * kMs), 0U);               // no run of three before it
    EXPECT_EQ(run({-1, -1, -1, -1, 1, -1, -1}, 30 * kMs), 1U);    // downwards too
    EXPECT_EQ(run({1, 1, 1, -1, -1, -1, -1}, 20 * kMs), 0U);      // a quick but real turn back
    EXPECT_EQ(run({1, 1, 1, -1, 1, 1, 1, -1, 1}, 20 * kMs), 2U);

    QualityAnalysis analysis(defaults());
    std::int64_t time = 0;
    for (const int notch : {1, 1, 1, 1, -1, 1}) {
        analysis.add(flags(time += 10 * kMs, 0x0800, 0, static_cast<std::int16_t>(notch * 120)));   // tilt
    }
    const auto found = analysis.findings(time);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].event, "WHEEL_DIRECTION_REVERSAL");
    EXPECT_EQ(found[0].detail, "horizontal wheel: 1 notch(es) against the turn");
}

TEST(ReportRate, MedianPercentilesAndRateOfSteadyAndJitteredStreams)
{
    struct Case {
        double hz;
        double jitterUs;
    };
    std::mt19937 random(7);
    for (const Case c : {Case{125, 0}, Case{1000, 0}, Case{500, 300}}) {
        QualityAnalysis analysis(defaults());
        std::normal_distribution<double> jitter(0.0, c.jitterUs > 0 ? c.jitterUs : 1e-9);
        const double periodUs = 1e6 / c.hz;
        for (int i = 0; i < 2000; ++i) {
            analysis.add(move(static_cast<std::int64_t>(i * periodUs + jitter(random)), 3, 1));
        }
        const pointerq::ReportRate& rate = analysis.rate();
        ASSERT_TRUE(rate.rateHz().has_value());
        EXPECT_NEAR(*rate.rateHz(), c.hz, c.hz * 0.02) << c.hz;
        EXPECT_TRUE(analysis.ran(QualityAnalysis::Rate, 0));
        if (c.jitterUs == 0) {
            EXPECT_NEAR(*rate.percentileUs(0.01), periodUs, 10);
            EXPECT_NEAR(*rate.percentileUs(0.99), periodUs, 10);
        } else {
            // Differences of two jittered times spread by sqrt(2) sigma: the 1st and 99th
            // percentiles lie about 2.3 of those below and above the period.
            const double spread = 2.33 * 1.414 * c.jitterUs;
            EXPECT_NEAR(*rate.percentileUs(0.01), periodUs - spread, 0.2 * spread);
            EXPECT_NEAR(*rate.percentileUs(0.99), periodUs + spread, 0.2 * spread);
        }
        EXPECT_EQ(rate.dropouts(), 0U);
    }
}

TEST(ReportRate, AGapInsideAMovementIsADropoutAndAPauseIsNot)
{
    QualityAnalysis analysis(defaults());
    std::int64_t time = 0;
    for (int i = 0; i < 200; ++i) {
        analysis.add(move(time += 8 * kMs, 2));
        if (i == 100) {
            time += 40 * kMs;   // five intervals with nothing: a dropout
        }
        if (i == 150) {
            time += 500 * kMs;  // the hand stops: not an interval at all
        }
    }
    EXPECT_EQ(analysis.rate().dropouts(), 1U);
    EXPECT_EQ(analysis.rate().intervals(), 198U);
    EXPECT_NEAR(*analysis.rate().rateHz(), 125, 1);

    QualityAnalysis::Settings strict = defaults();
    strict.minRateHz = 500;
    QualityAnalysis slow(strict);
    for (int i = 0; i < 200; ++i) {
        slow.add(move(i * 8 * kMs, 2));
    }
    const auto found = slow.findings(0);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].event, "REPORT_RATE_BELOW_MINIMUM");
}

TEST(IdleDrift, MovementDuringTheHandsOffPeriodIsFoundAndNotBeforeOrAfter)
{
    QualityAnalysis::Settings settings = defaults();
    settings.idleUs = 1000 * kMs;
    QualityAnalysis still(settings);
    still.add(move(0, 5));
    still.startIdle(10 * kMs);
    EXPECT_FALSE(still.ran(QualityAnalysis::Idle, 500 * kMs));
    EXPECT_EQ(still.idle().remainingUs(510 * kMs), 500 * kMs);
    still.add(move(1200 * kMs, 5));   // after the period
    EXPECT_TRUE(still.ran(QualityAnalysis::Idle, 1200 * kMs));
    EXPECT_TRUE(still.findings(1200 * kMs).empty());

    QualityAnalysis drifting(settings);
    drifting.startIdle(0);
    drifting.add(move(300 * kMs, 1, -1));
    drifting.add(move(600 * kMs, 0, 2));
    const auto found = drifting.findings(1100 * kMs);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].event, "POINTER_DRIFT_WHILE_IDLE");
    EXPECT_EQ(found[0].detail, "2 movement report(s), 4 counts, hands off");
}

TEST(PointerJumps, OneReportFarBeyondTheRecentMovementIsAJumpAndAFastFlickIsNot)
{
    QualityAnalysis flick(defaults());
    std::int64_t time = 0;
    // A flick: speeding up to 400 counts a report and slowing down again, at 1000 Hz.
    for (const int dx : {2, 5, 12, 30, 70, 150, 280, 400, 400, 300, 150, 60, 20, 5}) {
        flick.add(move(time += kMs, dx));
    }
    EXPECT_EQ(flick.jumps().jumps(), 0U);

    QualityAnalysis jumpy(defaults());
    time = 0;
    for (const int dy : {2, 3, 2, 3, -650, 2, 3}) {
        jumpy.add(move(time += 8 * kMs, 1, dy));
    }
    EXPECT_EQ(jumpy.jumps().jumps(), 1U);
    EXPECT_EQ(jumpy.jumps().largest(), 650);
    const auto found = jumpy.findings(time);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].event, "POINTER_JUMP");

    // From rest, a first report of 150 counts is beyond anything a hand starts with.
    QualityAnalysis fromRest(defaults());
    fromRest.add(move(0, 150));
    EXPECT_EQ(fromRest.jumps().jumps(), 1U);
}

TEST(QualityAnalysis, CompleteOnlyWhenEveryCheckAskedForHasRun)
{
    QualityAnalysis::Settings settings = defaults();
    settings.idleUs = 100 * kMs;
    settings.required[QualityAnalysis::Wheel] = false;
    QualityAnalysis analysis(settings);
    std::int64_t time = 0;
    for (int i = 0; i < 150; ++i) {
        analysis.add(move(time += kMs, 3));
    }
    EXPECT_FALSE(analysis.complete(time));
    analysis.add(flags(time += 10 * kMs, 0x0001 | 0x0002));
    analysis.add(flags(time += 100 * kMs, 0x0004 | 0x0008));
    EXPECT_FALSE(analysis.complete(time));
    analysis.startIdle(time);
    EXPECT_FALSE(analysis.complete(time + 50 * kMs));
    EXPECT_TRUE(analysis.complete(time + 100 * kMs));
    EXPECT_TRUE(analysis.findings(time + 100 * kMs).empty());

    const auto figures = analysis.measurements();
    const auto figure = [&figures](const std::string& name) {
        for (const auto& m : figures) {
            if (m.name == name) {
                return m;
            }
        }
        return QualityAnalysis::Measurement{"(absent)", -1, ""};
    };
    EXPECT_NEAR(figure("ReportRate").value, 1000, 20);
    EXPECT_EQ(figure("ReportRate").unit, "Hz");
    EXPECT_EQ(figure("LeftPresses").value, 1);
    EXPECT_EQ(figure("RightChatter").value, 0);
    EXPECT_EQ(figure("LargestJump").unit, "counts");
}

TEST(QualityAnalysis, SettingsComeFromTheParametersWithDefaultsForUnsetOnes)
{
    std::string error;
    const auto plain = QualityAnalysis::settingsFrom(0, 0, 0, {}, error);
    ASSERT_TRUE(plain.has_value());
    EXPECT_EQ(plain->chatterThresholdUs, 40 * kMs);
    EXPECT_EQ(plain->idleUs, 5000 * kMs);
    EXPECT_TRUE(plain->required[QualityAnalysis::Idle]);

    const auto chosen = QualityAnalysis::settingsFrom(25, 2, 500, {"rate", "idle"}, error);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(chosen->chatterThresholdUs, 25 * kMs);
    EXPECT_EQ(chosen->minRateHz, 500U);
    EXPECT_TRUE(chosen->required[QualityAnalysis::Rate]);
    EXPECT_FALSE(chosen->required[QualityAnalysis::Buttons]);

    EXPECT_FALSE(QualityAnalysis::settingsFrom(0, 0, 0, {"rate", "speed"}, error).has_value());
    EXPECT_EQ(error, "RequiredChecks: \"speed\" is not a check; give rate, buttons, wheel or idle");
}
