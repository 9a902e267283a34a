#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "padkit/SessionParser.h"
#include "padkit/SessionWriter.h"
#include "padkit/StickPacketBuilder.h"
#include "padkit/TouchPacketBuilder.h"

using padkit::Packet;
using padkit::Session;
using padkit::SessionWriter;
using rawkit::TouchSample;

namespace {

// A pad 0..1000 wide and 0..500 high (Y growing downwards), widths 0..100.
rawkit::TouchLayout pad(bool withWidth)
{
    rawkit::TouchLayout layout{{0, 1000}, {0, 500}, std::nullopt};
    if (withWidth) {
        layout.width = rawkit::ValueRange{0, 100};
    }
    return layout;
}

TouchSample touch(std::int32_t x, std::int32_t y, unsigned contacts = 1)
{
    TouchSample sample;
    sample.tip = contacts > 0;
    sample.contactCount = contacts;
    sample.x = x;
    sample.y = y;
    return sample;
}

}  // namespace

TEST(TouchPackets, PositionWidthAndMotionFollowTheFirstContact)
{
    padkit::TouchPacketBuilder builder(pad(true));
    TouchSample first = touch(200, 100);
    first.width = 50;
    const Packet landed = builder.build(first, 10);
    EXPECT_TRUE(landed.finger);
    EXPECT_EQ(landed.timeMs, 10);
    EXPECT_EQ(landed.x, 200);
    EXPECT_EQ(landed.y, 400);          // high Y at the top, as the sessions have it
    EXPECT_EQ(landed.width, 8);        // half the width range on the 0-15 scale
    EXPECT_FALSE(landed.motion);       // a finger that just landed has not moved

    first.x = 210;
    EXPECT_TRUE(builder.build(first, 20).motion);
    EXPECT_FALSE(builder.build(first, 30).motion);

    const Packet lifted = builder.build(TouchSample{}, 40);
    EXPECT_FALSE(lifted.finger);
    EXPECT_FALSE(lifted.motion);
    EXPECT_EQ(lifted.width, 0);

    // A pad that reports no width gives a fingertip's; the ends of a range stay on the scale.
    padkit::TouchPacketBuilder narrow(pad(false));
    EXPECT_EQ(narrow.build(touch(0, 0), 0).width, padkit::TouchPacketBuilder::kDefaultWidth);
    padkit::TouchPacketBuilder ends(pad(true));
    TouchSample full = touch(1000, 500);
    full.width = 100;
    const Packet corner = ends.build(full, 0);
    EXPECT_EQ(corner.width, 15);
    EXPECT_EQ(corner.x, 1000);
    EXPECT_EQ(corner.y, 0);
}

TEST(TouchPackets, AClickpadClicksRightWithTwoFingersOrInTheBottomRightCorner)
{
    padkit::TouchPacketBuilder builder(pad(false));
    const auto click = [&](TouchSample sample) {
        sample.button1 = true;
        return builder.build(sample, 0);
    };
    const Packet middleOfPad = click(touch(500, 250));
    EXPECT_TRUE(middleOfPad.left);
    EXPECT_FALSE(middleOfPad.right);
    EXPECT_TRUE(click(touch(900, 450)).right);
    EXPECT_TRUE(click(touch(100, 450)).left);          // bottom left stays a left click
    const Packet twoFingers = click(touch(100, 100, 2));
    EXPECT_TRUE(twoFingers.right);
    EXPECT_FALSE(twoFingers.left);

    // Pads with buttons of their own.
    TouchSample buttons = touch(500, 250);
    buttons.button2 = true;
    buttons.button3 = true;
    const Packet both = builder.build(buttons, 0);
    EXPECT_TRUE(both.right);
    EXPECT_TRUE(both.middle);
    EXPECT_FALSE(both.left);
}

TEST(StickPackets, MovementIsTheReadingAndButtonsStayHeldUntilReleased)
{
    namespace mouse = rawkit::mouse;
    padkit::StickPacketBuilder builder;
    Packet packet = builder.build({5, -3, mouse::kLeftDown, 0, 0}, 8);
    EXPECT_EQ(packet.stickX, 5);
    EXPECT_EQ(packet.stickY, 3);       // up is positive
    EXPECT_TRUE(packet.left);
    packet = builder.build({-100, 100, mouse::kRightDown | mouse::kMiddleDown, 0, 0}, 16);
    EXPECT_EQ(packet.stickX, -padkit::StickPacketBuilder::kRange);
    EXPECT_EQ(packet.stickY, -padkit::StickPacketBuilder::kRange);
    EXPECT_TRUE(packet.left && packet.right && packet.middle);
    packet = builder.build({0, 0, mouse::kLeftUp | mouse::kMiddleUp, 0, 0}, 24);
    EXPECT_FALSE(packet.left);
    EXPECT_TRUE(packet.right);
    EXPECT_FALSE(packet.middle);

    builder.build({7, 7, 0, 0, 0}, 30);
    const Packet rest = builder.rest(100);
    EXPECT_EQ(rest.timeMs, 100);
    EXPECT_EQ(rest.stickX, 0);
    EXPECT_EQ(rest.stickY, 0);
    EXPECT_TRUE(rest.right);
}

TEST(SessionWriting, WhatIsWrittenReadsBackAsTheSamePackets)
{
    Session header;
    header.type = SynDeviceTrackpoint;
    header.xLo = -40;
    header.xHi = 40;
    header.yLo = -40;
    header.yHi = 40;
    header.pnpId = "HID\\VID_845E&PID_0001 #2";   // a blank and a '#' stay part of it
    std::vector<Packet> packets(3);
    packets[0] = Packet{0, false, 0, 0, 0, false, 3, -4, true, false, false};
    packets[1] = Packet{12, true, 3000, -20, 15, true, 0, 0, false, true, true};
    packets[2] = Packet{12, false, 0, 0, 0, false, -40, 40, true, true, true};

    std::string text = SessionWriter::headerText(header, "recorded live from\nsomewhere");
    for (const Packet& packet : packets) {
        text += SessionWriter::packetLine(packet);
    }
    const Session read = padkit::SessionParser::parse(text, "live.session");
    EXPECT_EQ(read.type, SynDeviceTrackpoint);
    EXPECT_EQ(read.xLo, -40);
    EXPECT_EQ(read.yHi, 40);
    EXPECT_EQ(read.pnpId, header.pnpId);
    ASSERT_EQ(read.packets.size(), packets.size());
    for (std::size_t i = 0; i < packets.size(); ++i) {
        EXPECT_EQ(SessionWriter::packetLine(read.packets[i]), SessionWriter::packetLine(packets[i])) << i;
    }
}

TEST(SessionWriting, TheFileHoldsEachPacketAsSoonAsItIsWritten)
{
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "padkit-writer-test.session";
    Session header;
    header.type = SynDeviceTouchPad;
    header.xHi = 100;
    header.yHi = 100;
    std::string error;
    auto writer = SessionWriter::open(file, header, "", error);
    ASSERT_NE(writer, nullptr) << error;
    writer->write(Packet{5, true, 50, 50, 4, false, 0, 0, false, false, false});
    // Read while the writer is still open, as after a crash.
    EXPECT_EQ(padkit::SessionParser::load(file).packets.size(), 1U);
    writer.reset();
    std::filesystem::remove(file);

    EXPECT_EQ(SessionWriter::open("/nonexistent/folder/x.session", header, "", error), nullptr);
    EXPECT_FALSE(error.empty());
}
