#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "padkit/FrameLine.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"
#include "padkit/SessionWriter.h"
#include "padkit/StickPacketBuilder.h"
#include "padkit/TouchFrameStream.h"

using padkit::Packet;
using padkit::Session;
using padkit::SessionWriter;
using padkit::TouchFrameStream;
using rawkit::ContactReport;
using rawkit::TouchFrame;

namespace {

// A pad 0..1000 wide and 0..500 high (Y growing downwards), widths 0..100.
rawkit::TouchLayout pad(bool withWidth)
{
    rawkit::TouchLayout layout;
    layout.x = {0, 1000};
    layout.y = {0, 500};
    if (withWidth) {
        layout.width = rawkit::ValueRange{0, 100};
    }
    return layout;
}

ContactReport contact(std::uint32_t id, std::int32_t x, std::int32_t y, bool tip = true)
{
    return ContactReport{id, tip, true, x, y, {}, {}, {}};
}

TouchFrame frame(std::int64_t timeMs, std::vector<ContactReport> contacts, std::uint8_t buttons = 0)
{
    return TouchFrame{timeMs * 1000, std::move(contacts), buttons, std::nullopt};
}

}  // namespace

TEST(TouchPackets, PositionWidthAndMotionFollowTheFingerShown)
{
    TouchFrameStream stream(pad(true));
    ContactReport first = contact(0, 200, 100);
    first.width = 50;
    const Packet landed = stream.add(frame(10, {first}));
    EXPECT_TRUE(landed.finger);
    EXPECT_EQ(landed.timeMs, 10);
    EXPECT_EQ(landed.x, 200);
    EXPECT_EQ(landed.y, 400);          // high Y at the top, as the sessions have it
    EXPECT_EQ(landed.width, 8);        // half the width range on the 0-15 scale
    EXPECT_FALSE(landed.motion);       // a finger that just landed has not moved

    first.x = 210;
    EXPECT_TRUE(stream.add(frame(20, {first})).motion);
    // A second finger moving does not move the one shown.
    const Packet second = stream.add(frame(30, {first, contact(1, 700, 300)}));
    EXPECT_FALSE(second.motion);
    EXPECT_EQ(second.x, 210);
    EXPECT_EQ(stream.add(frame(40, {contact(1, 720, 300), first})).x, 210);

    // The first lifts while the second stays: the second is shown.
    const Packet handedOver = stream.add(frame(50, {contact(0, 210, 100, false), contact(1, 730, 300)}));
    EXPECT_TRUE(handedOver.finger);
    EXPECT_EQ(handedOver.x, 730);

    const Packet lifted = stream.add(frame(60, {}));
    EXPECT_FALSE(lifted.finger);
    EXPECT_FALSE(lifted.motion);
    EXPECT_EQ(lifted.width, 0);

    // A pad that reports no width gives a fingertip's; the ends of a range stay on the scale.
    TouchFrameStream narrow(pad(false));
    EXPECT_EQ(narrow.add(frame(0, {contact(0, 0, 0)})).width, padkit::TouchPacketBuilder::kDefaultWidth);
    TouchFrameStream ends(pad(true));
    ContactReport full = contact(0, 1000, 500);
    full.width = 100;
    const Packet corner = ends.add(frame(0, {full}));
    EXPECT_EQ(corner.width, 15);
    EXPECT_EQ(corner.x, 1000);
    EXPECT_EQ(corner.y, 0);
}

TEST(TouchPackets, AClickpadClicksRightWithTwoFingersOrInTheBottomRightCorner)
{
    const auto click = [](std::vector<ContactReport> contacts) {
        TouchFrameStream stream(pad(false));
        return stream.add(frame(0, std::move(contacts), 1));
    };
    const Packet middleOfPad = click({contact(0, 500, 250)});
    EXPECT_TRUE(middleOfPad.left);
    EXPECT_FALSE(middleOfPad.right);
    EXPECT_TRUE(click({contact(0, 900, 450)}).right);
    EXPECT_TRUE(click({contact(0, 100, 450)}).left);          // bottom left stays a left click
    const Packet twoFingers = click({contact(0, 100, 100), contact(1, 300, 100)});
    EXPECT_TRUE(twoFingers.right);
    EXPECT_FALSE(twoFingers.left);
    // A palm beside the finger is no second finger.
    std::vector<ContactReport> withPalm = {contact(0, 100, 100), contact(1, 600, 100)};
    withPalm[1].confidence = false;
    EXPECT_TRUE(click(withPalm).left);

    // Pads with buttons of their own.
    TouchFrameStream stream(pad(false));
    const Packet both = stream.add(frame(0, {contact(0, 500, 250)}, 0b110));
    EXPECT_TRUE(both.right);
    EXPECT_TRUE(both.middle);
    EXPECT_FALSE(both.left);
}

TEST(TouchPackets, HybridReportsGiveOnePacketAFrame)
{
    TouchFrameStream stream(pad(false));
    const auto report = [](ContactReport slot, unsigned count) {
        rawkit::TouchReport r;
        r.slots = {slot};
        r.contactCount = count;
        return r;
    };
    int packets = 0;
    for (int scan = 0; scan < 10; ++scan) {
        for (const auto& r : {report(contact(0, 100, 100), 2), report(contact(1, 500 + scan, 200), 0)}) {
            if (const auto packet = stream.add(r, scan * 8000)) {
                ++packets;
                EXPECT_EQ(packet->x, 100) << "the first finger throughout";
            }
        }
    }
    EXPECT_EQ(packets, 10);
    EXPECT_EQ(stream.malformedFrames(), 0U);
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

TEST(SessionWriting, AVersion2TouchpadKeepsEveryContact)
{
    Session header;
    header.type = SynDeviceTouchPad;
    header.version = 2;
    header.xHi = 1216;
    header.yHi = 680;
    header.widthMm = 101.3;
    header.heightMm = 56.6;
    header.widthRange = rawkit::ValueRange{0, 40};
    header.name = "DELL07E6:00 06CB:76AF Touchpad";
    ContactReport palm = contact(7, 900, 600);
    palm.confidence = false;
    palm.width = 40;
    palm.pressure = 255;
    const std::vector<TouchFrame> frames = {frame(0, {contact(0, 400, 300)}),
                                            TouchFrame{7500, {contact(0, 410, 302), palm}, 1, std::nullopt},
                                            frame(15, {}, 0b101)};
    std::string text = SessionWriter::headerText(header, "");
    for (const TouchFrame& f : frames) {
        text += padkit::FrameLine::format(f) + "\n";
    }
    const Session read = padkit::SessionParser::parse(text, "pad.session");
    EXPECT_EQ(read.version, 2);
    EXPECT_EQ(read.widthMm, 101.3);
    EXPECT_EQ(read.heightMm, 56.6);
    EXPECT_EQ(read.widthRange, header.widthRange);
    EXPECT_EQ(read.name, header.name);
    EXPECT_EQ(read.frames, frames);
    ASSERT_EQ(read.packets.size(), 3U) << "one packet a frame";
    EXPECT_EQ(read.packets[1].timeMs, 7);
    EXPECT_TRUE(read.packets[1].finger);
    EXPECT_EQ(read.packets[1].x, 410);
    EXPECT_TRUE(read.packets[1].left) << "the palm is no second finger";
    EXPECT_FALSE(read.packets[2].finger);
}

TEST(SessionWriting, Version2FrameLinesAreCheckedFieldByField)
{
    const std::string head = "padkit-session 2\ndevice touchpad\nx-range 0 100\ny-range 0 100\n";
    const auto fault = [&](const std::string& lines) {
        try {
            padkit::SessionParser::parse(head + lines, "pad.session");
        } catch (const padkit::SessionError& e) {
            return std::string(e.what());
        }
        return std::string("accepted");
    };
    EXPECT_EQ(fault("0 - 1,1,1,5,5,-,-,-\n"), "accepted");
    EXPECT_NE(fault("0 - 1,1,1,5,5\n").find("pad.session:5: contact \"1,1,1,5,5\" has 5 fields"), std::string::npos);
    EXPECT_NE(fault("0 - 1,2,1,5,5,-,-,-\n").find("is not a contact"), std::string::npos);
    EXPECT_NE(fault("0 4 1,1,1,5,5,-,-,-\n").find("not a button set"), std::string::npos);
    EXPECT_NE(fault("0.1234 -\n").find("is not a time"), std::string::npos);
    EXPECT_NE(fault("5 -\n4.999 -\n").find("pad.session:6: time \"4.999\" is before"), std::string::npos);
    EXPECT_NE(fault("size-mm 0 50\n").find("is not a size"), std::string::npos);
    EXPECT_NE(fault("size-mm 10\n").find("is not a size"), std::string::npos);
    // Version 1 knows none of it.
    EXPECT_THROW(padkit::SessionParser::parse("padkit-session 1\ndevice touchpad\nsize-mm 10 10\n", "v1"),
                 padkit::SessionError);
}
