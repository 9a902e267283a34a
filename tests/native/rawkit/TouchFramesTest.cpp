// The frame and contact rules on report streams of parallel and hybrid pads.
#include <gtest/gtest.h>

#include "rawkit/ContactTracker.h"
#include "rawkit/FrameAssembler.h"
#include "rawkit/HidUnits.h"

namespace {

using rawkit::ContactReport;
using rawkit::ContactTracker;
using rawkit::FrameAssembler;
using rawkit::TouchFrame;
using rawkit::TouchReport;

ContactReport finger(std::uint32_t id, std::int32_t x, bool tip = true, bool confidence = true)
{
    ContactReport contact;
    contact.id = id;
    contact.tip = tip;
    contact.confidence = confidence;
    contact.x = x;
    contact.y = 100;
    return contact;
}

TouchReport report(std::vector<ContactReport> slots, unsigned count, std::uint8_t buttons = 0)
{
    TouchReport r;
    r.slots = std::move(slots);
    r.contactCount = count;
    r.buttons = buttons;
    return r;
}

TEST(FrameAssembler, ParallelReportIsOneFrameOfItsCountedSlots)
{
    FrameAssembler assembler;
    // Five slots, two used: the others hold whatever the device left there.
    const auto frame = assembler.add(report({finger(3, 10), finger(4, 20), finger(0, 0, false), finger(0, 0, false),
                                             finger(0, 0, false)}, 2, 1), 500);
    ASSERT_TRUE(frame);
    ASSERT_EQ(frame->contacts.size(), 2U);
    EXPECT_EQ(frame->contacts[1].id, 4U);
    EXPECT_EQ(frame->buttons, 1);
    EXPECT_EQ(frame->timeUs, 500);
}

TEST(FrameAssembler, HybridFrameCompletesWithItsLastReport)
{
    FrameAssembler assembler;
    EXPECT_FALSE(assembler.add(report({finger(0, 10)}, 3), 0));
    EXPECT_FALSE(assembler.add(report({finger(1, 20)}, 0, 1), 100));
    const auto frame = assembler.add(report({finger(2, 30)}, 0), 200);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->contacts.size(), 3U);
    EXPECT_EQ(frame->buttons, 1) << "a button of any report of the scan";
    EXPECT_EQ(frame->timeUs, 200);
    EXPECT_EQ(assembler.malformedFrames(), 0U);
}

TEST(FrameAssembler, LostContinuationCountsTheFrameAndTheNextIsRight)
{
    FrameAssembler assembler;
    EXPECT_FALSE(assembler.add(report({finger(0, 10)}, 2), 0));
    // The second report of the scan never came; the next scan starts.
    EXPECT_FALSE(assembler.add(report({finger(0, 11)}, 2), 8000));
    EXPECT_EQ(assembler.malformedFrames(), 1U);
    const auto frame = assembler.add(report({finger(1, 21)}, 0), 8100);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->contacts[0].x, 11);
    EXPECT_EQ(frame->contacts[1].x, 21);
}

TEST(FrameAssembler, NewScanTimeEndsAnIncompleteFrame)
{
    FrameAssembler assembler;
    TouchReport first = report({finger(0, 10)}, 2);
    first.scanTime = 100;
    TouchReport orphan = report({finger(1, 20)}, 0);
    orphan.scanTime = 180;
    EXPECT_FALSE(assembler.add(first, 0));
    EXPECT_FALSE(assembler.add(orphan, 8000));
    EXPECT_EQ(assembler.malformedFrames(), 2U) << "the broken frame and the stray continuation";
}

TEST(FrameAssembler, RepeatedOrUndeclaredIdsAreMalformed)
{
    FrameAssembler assembler(4);
    EXPECT_FALSE(assembler.add(report({finger(1, 10), finger(1, 20)}, 2), 0));
    EXPECT_FALSE(assembler.add(report({finger(9, 10)}, 1), 10));
    EXPECT_EQ(assembler.malformedFrames(), 2U);
    EXPECT_TRUE(assembler.add(report({finger(4, 10)}, 1), 20));
}

TEST(FrameAssembler, ZeroCountOutsideAFrameIsTheButtonAlone)
{
    FrameAssembler assembler;
    const auto frame = assembler.add(report({finger(0, 0, false)}, 0, 1), 0);
    ASSERT_TRUE(frame);
    EXPECT_TRUE(frame->contacts.empty());
    EXPECT_EQ(frame->buttons, 1);
    EXPECT_FALSE(assembler.add(report({finger(0, 5)}, 0), 10)) << "a continuation without its start";
    EXPECT_EQ(assembler.malformedFrames(), 1U);
}

TouchFrame frameOf(std::vector<ContactReport> contacts, std::int64_t timeUs)
{
    return TouchFrame{timeUs, std::move(contacts), 0, std::nullopt};
}

TEST(ContactTracker, EarliestDownFingerIsShownUntilItLifts)
{
    ContactTracker tracker;
    tracker.apply(frameOf({finger(5, 10)}, 0));
    tracker.apply(frameOf({finger(5, 11), finger(2, 50)}, 10));
    ASSERT_EQ(tracker.fingers().size(), 2U);
    EXPECT_EQ(tracker.shown()->contact.x, 11);
    tracker.apply(frameOf({finger(2, 52), finger(5, 12)}, 20));   // order within the frame is no rank
    EXPECT_EQ(tracker.shown()->contact.id, 5U);
    tracker.apply(frameOf({finger(5, 12, false), finger(2, 53)}, 30));
    ASSERT_EQ(tracker.fingers().size(), 1U);
    EXPECT_EQ(tracker.shown()->contact.x, 53);
    tracker.apply(frameOf({}, 40));
    EXPECT_EQ(tracker.shown(), nullptr) << "a complete frame without it lifts it";
}

TEST(ContactTracker, PalmIsNeverAFingerUntilItLifts)
{
    ContactTracker tracker;
    tracker.apply(frameOf({finger(1, 10, true, false)}, 0));
    EXPECT_EQ(tracker.shown(), nullptr);
    EXPECT_EQ(tracker.palmsDown(), 1U);
    tracker.apply(frameOf({finger(1, 10, true, true), finger(2, 40)}, 10));
    ASSERT_EQ(tracker.fingers().size(), 1U) << "confidence coming back does not make it a finger";
    EXPECT_EQ(tracker.shown()->contact.id, 2U);
    tracker.apply(frameOf({finger(2, 41), finger(3, 70, true, false)}, 20));
    EXPECT_EQ(tracker.palmFrames(), 3U);
    tracker.apply(frameOf({finger(2, 42), finger(1, 10)}, 30));
    EXPECT_EQ(tracker.fingers().size(), 2U) << "id 1 lifted as a palm and came back as a finger";
    EXPECT_EQ(tracker.palmsDown(), 0U);
}

TEST(ContactTracker, FingerTurningPalmLeavesTheFingers)
{
    ContactTracker tracker;
    tracker.apply(frameOf({finger(1, 10), finger(2, 20)}, 0));
    tracker.apply(frameOf({finger(1, 10, true, false), finger(2, 20)}, 10));
    ASSERT_EQ(tracker.fingers().size(), 1U);
    EXPECT_EQ(tracker.shown()->contact.id, 2U);
}

TEST(HidUnits, LengthsInCentimetresAndInches)
{
    EXPECT_NEAR(*rawkit::extentMm(0, 1013, 0x11, 0xE), 101.3, 1e-9);    // 10^-2 cm, stored exponent
    EXPECT_NEAR(*rawkit::extentMm(0, 413, 0x13, -2), 104.902, 1e-9);    // 10^-2 inch
    EXPECT_FALSE(rawkit::extentMm(0, 1013, 0, 0xE)) << "no unit: size unknown";
    EXPECT_FALSE(rawkit::extentMm(0, 1013, 0x12, 0xE)) << "rotation is no length";
    EXPECT_FALSE(rawkit::extentMm(0, 1013, 0x111, 0xE)) << "length times mass";
    EXPECT_FALSE(rawkit::extentMm(5, 5, 0x11, 0)) << "an empty extent";
}

TEST(HidUnits, ResolutionOfALayout)
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1216};
    layout.widthMm = 101.3;
    EXPECT_NEAR(*layout.dpiX(), 1216 / (101.3 / 25.4), 1e-9);
    EXPECT_FALSE(layout.dpiY());
}

}  // namespace
