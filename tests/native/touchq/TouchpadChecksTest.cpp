// The touchpad quality checks on synthetic frame streams: sweeps with and without a dead band,
// fingers and palms, resting and trembling fingers, report rates, ghosts, clicks and the verdict.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "touchq/TouchpadAnalysis.h"

using rawkit::ContactReport;
using rawkit::TouchFrame;
using touchq::CoverageMap;
using touchq::ReportRate;
using touchq::TouchpadAnalysis;

namespace {

constexpr std::int64_t kMs = 1000;

// A pad of 101.3 x 56.6 mm in 1216 x 680 units (12 units a mm): 13 x 7 cells of 7.8 x 8.1 mm.
rawkit::TouchLayout pad()
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.y = {0, 680};
    layout.widthMm = 101.3;
    layout.heightMm = 56.6;
    return layout;
}

ContactReport contact(std::uint32_t id, std::int32_t x, std::int32_t y, bool confidence = true)
{
    ContactReport c;
    c.id = id;
    c.tip = true;
    c.confidence = confidence;
    c.x = x;
    c.y = y;
    return c;
}

TouchFrame frame(std::int64_t timeUs, std::vector<ContactReport> contacts, std::uint8_t buttons = 0)
{
    return TouchFrame{timeUs, std::move(contacts), buttons, std::nullopt};
}

TouchpadAnalysis::Settings only(TouchpadAnalysis::Check check)
{
    TouchpadAnalysis::Settings settings;
    for (bool& required : settings.required) {
        required = false;
    }
    settings.required[check] = true;
    return settings;
}

std::vector<std::string> events(const std::vector<TouchpadAnalysis::Finding>& findings)
{
    std::vector<std::string> names;
    for (const auto& finding : findings) {
        names.push_back(finding.event);
    }
    return names;
}

// One finger sweeping the pad row by row, 8 units a frame at 125 Hz, lifting at the end of each
// row; where `reported` says no, the pad reports no contact (and a new one when it comes back).
std::int64_t sweep(TouchpadAnalysis& analysis, std::int64_t timeUs, unsigned rows,
                   const std::function<bool(std::int32_t x)>& reported = [](std::int32_t) { return true; })
{
    std::uint32_t id = 0;
    for (unsigned row = 0; row < rows; ++row) {
        const auto y = static_cast<std::int32_t>((row + 0.5) * 681 / rows);
        bool down = false;
        for (std::int32_t x = 0; x <= 1216; x += 8, timeUs += 8 * kMs) {
            id += down && !reported(x) ? 1 : 0;
            down = reported(x);
            analysis.add(frame(timeUs, down ? std::vector{contact(id, x, y)} : std::vector<ContactReport>{}));
        }
        analysis.add(frame(timeUs, {}));
        timeUs += 200 * kMs;
        ++id;
    }
    return timeUs;
}

}  // namespace

TEST(Coverage, ASweepCoversEveryCellAndADeadBandLeavesExactlyItsCells)
{
    TouchpadAnalysis full(pad(), only(TouchpadAnalysis::Coverage));
    EXPECT_EQ(full.coverage().columns(), 13U);
    EXPECT_EQ(full.coverage().rows(), 7U);
    sweep(full, 0, 7);
    EXPECT_EQ(full.coverage().coveredCells(), 91U);
    EXPECT_TRUE(full.ran(TouchpadAnalysis::Coverage, 0));
    EXPECT_TRUE(full.verdictFindings(0).empty());

    // Columns 5 and 6 (from 1) span units 374.5 to 561.7: nothing reported from 374 to 561.
    TouchpadAnalysis banded(pad(), only(TouchpadAnalysis::Coverage));
    sweep(banded, 0, 7, [](std::int32_t x) { return x < 374 || x > 561; });
    std::vector<CoverageMap::Cell> band;
    for (unsigned row = 0; row < 7; ++row) {
        band.push_back({row, 4});
        band.push_back({row, 5});
    }
    EXPECT_EQ(banded.coverage().uncovered(), band);
    EXPECT_FALSE(banded.ran(TouchpadAnalysis::Coverage, 0));
    EXPECT_TRUE(banded.findings(0).empty()) << "cells not yet covered are still to do, not a finding";
    const auto found = banded.verdictFindings(0);
    ASSERT_EQ(events(found), std::vector<std::string>{"TOUCHPAD_DEAD_ZONE"});
    const std::string& detail = found[0].detail;
    EXPECT_EQ(detail.rfind("14 of 91 cells never touched (cells of 7.8 x 8.1 mm", 0), 0U) << detail;
    // 4 x 101.3 / 13 = 31.2 mm from the left; the last row starts 6 x 56.6 / 7 = 48.5 mm down.
    EXPECT_NE(detail.find(": row 1 column 5, 31.2 x 0.0 mm; row 1 column 6, 39.0 x 0.0 mm; row 2 column 5"),
              std::string::npos) << detail;
    EXPECT_NE(detail.find("row 7 column 6, 39.0 x 48.5 mm"), std::string::npos) << detail;
}

TEST(Coverage, APadOfUnknownSizeHasTwelveByEightCellsAndNoPlacesInMillimetres)
{
    rawkit::TouchLayout layout = pad();
    layout.widthMm.reset();
    TouchpadAnalysis analysis(layout, only(TouchpadAnalysis::Coverage));
    EXPECT_EQ(analysis.coverage().totalCells(), 96U);
    // Beyond the range counts at the edge: a pad overshoots.
    analysis.add(frame(0, {contact(1, -40, 900)}));
    EXPECT_TRUE(analysis.coverage().covered({7, 0}));
    const auto found = analysis.verdictFindings(0);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].detail.rfind("95 of 96 cells never touched: row 1 column 1; row 1 column 2;", 0), 0U)
        << found[0].detail;
    EXPECT_EQ(found[0].detail.find(" mm"), std::string::npos);
}

TEST(Contacts, TheMostFingersAtOnceLeaveOutPalms)
{
    TouchpadAnalysis analysis(pad(), only(TouchpadAnalysis::Contacts));
    // Two fingers and a palm: two. A palm covers no cell either.
    analysis.add(frame(0, {contact(1, 100, 100), contact(2, 300, 100), contact(3, 1100, 600, false)}));
    EXPECT_EQ(analysis.contacts().most(), 2U);
    EXPECT_FALSE(analysis.coverage().covered(analysis.coverage().cellOf(1100, 600)));
    // The palm keeps being one when it is later reported confident, until it lifts.
    analysis.add(frame(8 * kMs, {contact(1, 100, 100), contact(2, 300, 100), contact(3, 1100, 600)}));
    EXPECT_EQ(analysis.contacts().most(), 2U);
    EXPECT_EQ(events(analysis.verdictFindings(8 * kMs)), std::vector<std::string>{"TOUCHPAD_CONTACTS_BELOW_MINIMUM"});
    EXPECT_EQ(analysis.verdictFindings(8 * kMs)[0].detail, "at most 2 finger(s) at once, fewer than 3");
    EXPECT_EQ(analysis.tracker().palmFrames(), 2U);

    analysis.add(frame(16 * kMs, {}));
    analysis.add(frame(24 * kMs, {contact(4, 100, 100), contact(5, 300, 100), contact(6, 500, 100),
                                  contact(7, 700, 100), contact(8, 900, 100, false)}));
    EXPECT_EQ(analysis.contacts().most(), 4U);
    EXPECT_TRUE(analysis.ran(TouchpadAnalysis::Contacts, 0));
    EXPECT_TRUE(analysis.verdictFindings(24 * kMs).empty());
}

namespace {

// One finger down at t0 for 2.4 s at 125 Hz, at x0 + offset(t) (units; 12 units a mm).
void rest(TouchpadAnalysis& analysis, std::int64_t t0, std::uint32_t id, const std::function<double(std::int64_t)>& offset)
{
    for (std::int64_t t = 0; t <= 2400 * kMs; t += 8 * kMs) {
        analysis.add(frame(t0 + t, {contact(id, 600 + static_cast<std::int32_t>(std::lround(offset(t))), 340)}));
    }
    analysis.add(frame(t0 + 2408 * kMs, {}));
}

double tremble(std::int64_t t, double amplitudeUnits)
{
    return amplitudeUnits * std::sin(2.0 * 3.14159265358979 * 10.0 * static_cast<double>(t) / 1e6);
}

}  // namespace

TEST(RestingFinger, AStillFingerPassesAndOneTremblingAMillimetreIsJitter)
{
    TouchpadAnalysis still(pad(), only(TouchpadAnalysis::Jitter));
    // A fingertip settling 2 mm in its first 100 ms, then trembling 0.1 mm (10 Hz).
    rest(still, 0, 1, [](std::int64_t t) { return t < 100 * kMs ? 24.0 : tremble(t, 1.2); });
    EXPECT_EQ(still.rest().rests(), 1U);
    ASSERT_TRUE(still.rest().jitterMicrons());
    EXPECT_LE(*still.rest().jitterMicrons(), 100.0 + 42.0) << "0.1 mm, and the unit's own half";
    EXPECT_TRUE(still.ran(TouchpadAnalysis::Jitter, 0));
    EXPECT_TRUE(still.findings(0).empty());

    TouchpadAnalysis trembling(pad(), only(TouchpadAnalysis::Jitter));
    rest(trembling, 0, 1, [](std::int64_t t) { return tremble(t, 12.0); });
    ASSERT_TRUE(trembling.rest().jitterMicrons());
    EXPECT_NEAR(*trembling.rest().jitterMicrons(), 1000.0, 45.0);
    const auto found = trembling.findings(0);
    ASSERT_EQ(events(found), std::vector<std::string>{"TOUCHPAD_JITTER"});
    EXPECT_EQ(found[0].detail.rfind("a resting finger moved up to ", 0), 0U) << found[0].detail;

    // A later still rest shows the pad can hold a finger still: the first was the person's.
    rest(trembling, 3000 * kMs, 2, [](std::int64_t) { return 0.0; });
    EXPECT_EQ(trembling.rest().rests(), 2U);
    EXPECT_TRUE(trembling.findings(0).empty());
}

TEST(RestingFinger, MovementSecondFingersAndAnUnknownSizeMakeNoRest)
{
    TouchpadAnalysis moving(pad(), only(TouchpadAnalysis::Jitter));
    rest(moving, 0, 1, [](std::int64_t t) { return static_cast<double>(t) / 10000.0; });   // 17 mm in 2 s
    EXPECT_EQ(moving.rest().rests(), 0U);

    TouchpadAnalysis joined(pad(), only(TouchpadAnalysis::Jitter));
    joined.add(frame(0, {contact(1, 600, 340)}));
    joined.add(frame(1000 * kMs, {contact(1, 600, 340), contact(2, 900, 340)}));
    joined.add(frame(1100 * kMs, {contact(1, 600, 340)}));
    joined.add(frame(2500 * kMs, {contact(1, 600, 340)}));
    EXPECT_EQ(joined.rest().rests(), 0U) << "a second finger came during the rest";

    rawkit::TouchLayout unknown = pad();
    unknown.heightMm.reset();
    TouchpadAnalysis unsized(unknown, only(TouchpadAnalysis::Jitter));
    rest(unsized, 0, 1, [](std::int64_t) { return 0.0; });
    EXPECT_FALSE(unsized.rest().measurable());
    EXPECT_FALSE(unsized.ran(TouchpadAnalysis::Jitter, 0));
}

namespace {

// `fingers` fingers moving together at `hz` for 1.5 s.
void move(TouchpadAnalysis& analysis, double hz, unsigned fingers)
{
    const double periodUs = 1e6 / hz;
    for (int n = 0; n * periodUs <= 1.5e6; ++n) {
        std::vector<ContactReport> contacts;
        for (unsigned f = 0; f < fingers; ++f) {
            contacts.push_back(contact(f, 100 + 2 * n, 100 + 100 * static_cast<std::int32_t>(f)));
        }
        analysis.add(frame(static_cast<std::int64_t>(std::llround(n * periodUs)), contacts));
    }
}

}  // namespace

TEST(ReportRate, TheCertificationsBoundsForOneAndForSeveralFingers)
{
    struct Case {
        double hz;
        unsigned fingers;
        const char* finding;   // empty: none
    };
    for (const Case c : {Case{125, 1, ""}, Case{125, 5, ""}, Case{100, 5, ""}, Case{250, 1, ""},
                         Case{90, 1, "one finger: 90 Hz, below 125 Hz"}, Case{100, 1, "one finger: 100 Hz, below 125 Hz"},
                         Case{90, 5, "three fingers or more: 90 Hz, below 100 Hz"},
                         Case{300, 1, "one finger: 300 Hz, above 250 Hz"},
                         Case{300, 5, "three fingers or more: 300 Hz, above 250 Hz"}}) {
        TouchpadAnalysis analysis(pad(), only(TouchpadAnalysis::Rate));
        move(analysis, c.hz, c.fingers);
        const ReportRate::Contacts kind = c.fingers == 1 ? ReportRate::One : ReportRate::Several;
        const ReportRate::Contacts other = c.fingers == 1 ? ReportRate::Several : ReportRate::One;
        ASSERT_TRUE(analysis.rate().rateHz(kind)) << c.hz;
        EXPECT_NEAR(*analysis.rate().rateHz(kind), c.hz, 0.5) << c.hz;
        EXPECT_EQ(analysis.rate().intervals(other), 0U);
        const auto found = analysis.findings(0);
        if (*c.finding == 0) {
            EXPECT_TRUE(found.empty()) << c.hz << " Hz, " << c.fingers << ": " << found[0].detail;
        } else {
            ASSERT_EQ(found.size(), 1U) << c.hz << " Hz, " << c.fingers;
            EXPECT_EQ(found[0].event, "TOUCHPAD_REPORT_RATE_OUT_OF_RANGE");
            EXPECT_EQ(found[0].detail, c.finding);
        }
    }
    // Two fingers count for neither; a still finger's frames and a pause are no intervals.
    TouchpadAnalysis analysis(pad(), only(TouchpadAnalysis::Rate));
    move(analysis, 125, 2);
    analysis.add(frame(2000 * kMs, {contact(9, 10, 10)}));
    analysis.add(frame(2008 * kMs, {contact(9, 10, 10)}));
    analysis.add(frame(2300 * kMs, {contact(9, 20, 10)}));
    EXPECT_EQ(analysis.rate().intervals(ReportRate::One) + analysis.rate().intervals(ReportRate::Several), 0U);

    // Measured both ways, judged not at all when asked so.
    TouchpadAnalysis::Settings unjudged = only(TouchpadAnalysis::Rate);
    unjudged.judgeRate = false;
    TouchpadAnalysis measured(pad(), unjudged);
    move(measured, 90, 1);
    move(measured, 90, 3);
    EXPECT_TRUE(measured.ran(TouchpadAnalysis::Rate, 0));
    EXPECT_TRUE(measured.findings(0).empty());
}

TEST(HandsOff, AContactInThePeriodIsAGhostWithWhereAndWhen)
{
    TouchpadAnalysis analysis(pad(), only(TouchpadAnalysis::Idle));
    analysis.add(frame(0, {contact(1, 600, 340)}));   // before: the hand leaving
    analysis.add(frame(8 * kMs, {}));
    analysis.startIdle(1000 * kMs);
    EXPECT_FALSE(analysis.ran(TouchpadAnalysis::Idle, 1000 * kMs));
    // Contact 7 at 500, 150 units (41.7 mm, 12.5 mm: row 2, column 6) for three frames, 3 s in.
    for (std::int64_t t = 4000; t <= 4016; t += 8) {
        analysis.add(frame(t * kMs, {contact(7, 500, 150)}));
    }
    analysis.add(frame(4024 * kMs, {}));
    EXPECT_EQ(analysis.idle().ghosts(), 1U);
    const auto found = analysis.findings(5000 * kMs);
    ASSERT_EQ(events(found), std::vector<std::string>{"TOUCHPAD_GHOST_CONTACT"}) << "found while the period runs";
    EXPECT_EQ(found[0].detail, "1 contact(s) while hands off: contact 7 at row 2 column 6, 41.7 x 12.5 mm, 3.0 s into the period");
    analysis.add(frame(11500 * kMs, {contact(8, 10, 10)}));   // after the period: the hand back
    EXPECT_EQ(analysis.idle().ghosts(), 1U);
    EXPECT_TRUE(analysis.ran(TouchpadAnalysis::Idle, 11000 * kMs));

    TouchpadAnalysis quiet(pad(), only(TouchpadAnalysis::Idle));
    quiet.startIdle(0);
    EXPECT_TRUE(quiet.complete(10000 * kMs));
    EXPECT_TRUE(quiet.findings(10000 * kMs).empty());
}

TEST(PadClicks, AClickpadClicksInBothHalvesAndAPadWithButtonsOnEach)
{
    TouchpadAnalysis clickpad(pad(), only(TouchpadAnalysis::Buttons));
    clickpad.add(frame(0, {contact(1, 200, 600)}, 1));
    clickpad.add(frame(8 * kMs, {contact(1, 200, 600)}, 0));
    EXPECT_TRUE(clickpad.clicks().leftHalfClicked());
    EXPECT_FALSE(clickpad.ran(TouchpadAnalysis::Buttons, 0));
    // Pressed with no finger down, the click is in neither half.
    clickpad.add(frame(16 * kMs, {}, 1));
    clickpad.add(frame(24 * kMs, {}, 0));
    EXPECT_FALSE(clickpad.clicks().rightHalfClicked());
    // Pressed in the right half and released after the finger slid left: the right half's.
    clickpad.add(frame(32 * kMs, {contact(2, 1000, 600)}, 1));
    EXPECT_FALSE(clickpad.ran(TouchpadAnalysis::Buttons, 0)) << "pressed, not yet released";
    clickpad.add(frame(40 * kMs, {contact(2, 500, 600)}, 0));
    EXPECT_TRUE(clickpad.ran(TouchpadAnalysis::Buttons, 0));
    EXPECT_EQ(clickpad.clicks().clicks(), 3U);

    // A second button: the pad has buttons of its own, each to be clicked, wherever the finger is.
    TouchpadAnalysis buttons(pad(), only(TouchpadAnalysis::Buttons));
    for (const std::uint8_t held : {1, 0, 2}) {
        buttons.add(frame(0, {contact(1, 200, 600)}, held));
    }
    EXPECT_TRUE(buttons.clicks().separateButtons());
    EXPECT_FALSE(buttons.ran(TouchpadAnalysis::Buttons, 0)) << "button 2 still held";
    buttons.add(frame(0, {contact(1, 200, 600)}, 0));
    EXPECT_TRUE(buttons.ran(TouchpadAnalysis::Buttons, 0));
}

TEST(TouchpadAnalysis, SettingsTheVerdictAndTheFigures)
{
    std::string error;
    auto settings = TouchpadAnalysis::settingsFrom(0, 0, true, 0, {}, error);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->minContacts, 3U);
    EXPECT_EQ(settings->maxJitterMicrons, 500.0);
    EXPECT_EQ(settings->idleUs, 10000000);
    settings = TouchpadAnalysis::settingsFrom(4, 300, false, 3, {"resolution", "idle"}, error);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->minContacts, 4U);
    EXPECT_FALSE(settings->judgeRate);
    EXPECT_TRUE(settings->required[TouchpadAnalysis::Resolve] && settings->required[TouchpadAnalysis::Idle]);
    EXPECT_FALSE(settings->required[TouchpadAnalysis::Coverage]);
    EXPECT_FALSE(TouchpadAnalysis::settingsFrom(0, 0, true, 0, {"wheel"}, error));
    EXPECT_EQ(error, "RequiredChecks: \"wheel\" is not a check; give coverage, contacts, jitter, rate, idle, buttons or "
                     "resolution");

    // A pad of 1216 units over 101.3 mm: 305 dpi. One of 250 units over 25.4 mm is below 300,
    // found before any input, and only where the check is asked for.
    rawkit::TouchLayout coarse = pad();
    coarse.x = {0, 250};
    coarse.widthMm = 25.4;
    TouchpadAnalysis judged(coarse, only(TouchpadAnalysis::Resolve));
    EXPECT_TRUE(judged.complete(0));
    ASSERT_EQ(judged.findings(0).size(), 1U);
    EXPECT_EQ(judged.findings(0)[0].detail, "250 x 305 dpi, below 300 dpi");
    TouchpadAnalysis unjudged(coarse, only(TouchpadAnalysis::Coverage));
    EXPECT_TRUE(unjudged.findings(0).empty());
    EXPECT_FALSE(unjudged.complete(0));
    EXPECT_EQ(events(unjudged.verdictFindings(0)), std::vector<std::string>{"TOUCHPAD_DEAD_ZONE"});

    // Every figure, in order; what is unknown is NaN (the report's null).
    rawkit::TouchLayout unsized = pad();
    unsized.widthMm.reset();
    TouchpadAnalysis fresh(unsized, TouchpadAnalysis::Settings{});
    const auto figures = fresh.measurements(3);
    std::vector<std::string> names;
    for (const auto& figure : figures) {
        names.push_back(figure.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{
                         "PadWidth", "PadHeight", "CellsCovered", "CellsTotal", "MaxContacts", "JitterMicrons",
                         "ReportRateOneContact", "ReportIntervalMedianOneContact", "ReportIntervalP1OneContact",
                         "ReportIntervalP99OneContact", "ReportIntervalsOneContact", "ReportRateSeveralContacts",
                         "ReportIntervalMedianSeveralContacts", "ReportIntervalP1SeveralContacts",
                         "ReportIntervalP99SeveralContacts", "ReportIntervalsSeveralContacts", "GhostContacts",
                         "PalmFrames", "MalformedFrames", "ResolutionX", "ResolutionY"}));
    EXPECT_TRUE(std::isnan(figures[0].value));
    EXPECT_EQ(figures[1].value, 56.6);
    EXPECT_EQ(figures[3].value, 96.0);
    EXPECT_EQ(figures[18].value, 3.0);
    EXPECT_TRUE(std::isnan(figures[19].value));
    EXPECT_NEAR(figures[20].value, 680 / (56.6 / 25.4), 1e-9);
}
