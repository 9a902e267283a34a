// HID recordings replayed through our own descriptor parser: recordings the tests make of the
// shipped touchpads' descriptors (a finger sweeping the pad then a click, two fingers of a hybrid
// pad, a pointing stick beside a touchpad), the device a file of several gives, the faults it
// refuses and where, and --convert.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "RecordingText.h"
#include "ReportBytes.h"
#include "harn5/HarnException.h"
#include "padkit/PacketSource.h"
#include "padkit/ReplayFile.h"
#include "padkit/SessionConverter.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"
#include "padkit/SessionWriter.h"

namespace {

using padkit::Packet;
using padkit::ReplayFile;
using Bytes = std::vector<std::uint8_t>;

// The Elan pad's report 4 (10 bytes): confidence, tip, a 2-bit id, X and Y of 16 bits, the scan
// time (in 100 us, from the report's time), the contact count and the pad's button, where its
// descriptor puts them.
Bytes elan(std::int64_t timeUs, bool tip, unsigned id, int x, int y, unsigned count, bool button = false)
{
    return ReportBytes(4, 10)
        .put(0, 1, 1).put(1, 1, tip).put(2, 2, id).put(8, 16, x).put(24, 16, y)
        .put(40, 16, timeUs / 100).put(56, 8, count).put(64, 1, button)
        .bytes();
}

RecordingText elanRecording()
{
    return RecordingText(RecordingText::shipped("elan_04f3_300b.rdesc"), "ELAN0412:00 04F3:300B Touchpad", 0x04F3,
                         0x300B);
}

// A finger sweeping the pad left to right, a click in its left half, the finger lifting.
RecordingText sweepAndClick()
{
    RecordingText recording = elanRecording();
    std::int64_t t = 0;
    for (int i = 0; i < 20; ++i, t += 8000) {
        recording.report(t, elan(t, true, 0, 100 + 100 * i, 1000, 1));
    }
    recording.report(t, elan(t, true, 0, 1000, 1000, 1, true));
    recording.report(t + 8000, elan(t + 8000, true, 0, 1000, 1000, 1));
    recording.report(t + 16000, elan(t + 16000, false, 0, 1000, 1000, 1));
    return recording;
}

std::vector<Packet> packets(padkit::PacketSource& source)
{
    std::vector<Packet> all;
    Packet packet;
    while (source.next(packet)) {
        all.push_back(packet);
    }
    return all;
}

std::string refusal(const std::filesystem::path& file, SynDeviceType type, std::optional<unsigned> device = {})
{
    try {
        packets(*ReplayFile::open(file, type, device));
    } catch (const padkit::SessionError& error) {
        return std::string(error.what()).substr(file.parent_path().string().size() + 1);
    }
    return "(accepted)";
}

TEST(RecordingReplay, AFingerSweepingTheHybridPadThenAClick)
{
    const std::filesystem::path file = sweepAndClick().save("padkit-sweep.hid");
    const std::unique_ptr<padkit::PacketSource> source = ReplayFile::open(file, SynDeviceTouchPad);
    const padkit::Session& header = source->header();
    EXPECT_EQ(header.version, 2);
    EXPECT_EQ(header.xHi, 3239);
    EXPECT_EQ(header.yHi, 2347);
    EXPECT_NEAR(*header.widthMm, 104.902, 0.001);
    EXPECT_EQ(header.name, "ELAN0412:00 04F3:300B Touchpad");
    EXPECT_EQ(header.pnpId, "HID\\VID_04F3&PID_300B");
    EXPECT_EQ(source->contactsPerReport(), 1U);

    const std::vector<Packet> all = packets(*source);
    ASSERT_EQ(all.size(), 23U) << "a packet a frame";
    EXPECT_TRUE(all[0].finger);
    EXPECT_EQ(all[0].x, 100);
    EXPECT_EQ(all[0].y, 2347 - 1000) << "the high Y at the top";
    EXPECT_EQ(all[19].x, 2000);
    EXPECT_TRUE(all[19].motion);
    EXPECT_EQ(all[19].timeMs, 152);
    EXPECT_TRUE(all[20].left && !all[20].right) << "one finger in the left half clicks left";
    EXPECT_FALSE(all[21].left);
    EXPECT_FALSE(all[22].finger);
    EXPECT_EQ(source->malformedFrames(), 0U);
    std::filesystem::remove(file);
}

TEST(RecordingReplay, TwoFingersOfAHybridPadAreOneFrameAPacket)
{
    RecordingText recording = elanRecording();
    for (int i = 0; i < 4; ++i) {
        recording.report(i * 8000, elan(i * 8000, true, 1, 500 + i, 500, 2));
        recording.report(i * 8000 + 10, elan(i * 8000 + 10, true, 2, 2500 + 50 * i, 600, 0));
    }
    recording.report(40000, elan(40000, true, 2, 2700, 600, 1));   // the first lifted: the second shown
    recording.report(48000, elan(48000, true, 2, 2700, 600, 2));   // a continuation lost...
    recording.report(56000, elan(56000, true, 2, 2750, 600, 1));   // ...the frame counted, the next right
    const std::filesystem::path file = recording.save("padkit-two.hid");
    const std::unique_ptr<padkit::PacketSource> source = ReplayFile::open(file, SynDeviceTouchPad);
    const std::vector<Packet> all = packets(*source);
    ASSERT_EQ(all.size(), 6U);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(all[i].x, 500 + i) << "the first finger stays shown";
    }
    ASSERT_NE(source->frame(), nullptr);
    EXPECT_EQ(all[4].x, 2700);
    EXPECT_EQ(all[5].x, 2750);
    EXPECT_EQ(source->malformedFrames(), 1U);
    std::filesystem::remove(file);
}

TEST(RecordingReplay, APointingStickBesideATouchpadGivesItsReadingsAndComesToRest)
{
    RecordingText recording(RecordingText::shipped("synaptics_06cb_ce08.rdesc"), "SYNA7DB5:01 06CB:CE08", 0x06CB,
                            0xCE08);
    const auto stick = [](unsigned buttons, int dx, int dy) {
        return ReportBytes(0x18, 4).put(0, 3, buttons).put(8, 8, dx).put(16, 8, dy).bytes();
    };
    recording.report(0, stick(1, 5, -3));
    recording.report(5000, ReportBytes(3, 30).bytes());   // the touchpad's report: not the stick's
    recording.report(10000, stick(1, 100, 0));
    recording.report(200000, stick(0, 0, 0));
    const std::filesystem::path file = recording.save("padkit-stick.hid");
    const std::unique_ptr<padkit::PacketSource> source = ReplayFile::open(file, SynDeviceTrackpoint);
    EXPECT_EQ(source->header().xHi, 40);
    const std::vector<Packet> all = packets(*source);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[0].stickX, 5);
    EXPECT_EQ(all[0].stickY, 3) << "up is positive";
    EXPECT_TRUE(all[0].left);
    EXPECT_EQ(all[1].stickX, 40) << "clamped as the live stick is";
    EXPECT_EQ(all[2].timeMs, 70) << "at rest 60 ms after its last report";
    EXPECT_EQ(all[2].stickX, 0);
    EXPECT_TRUE(all[2].left);
    EXPECT_FALSE(all[3].left);
    EXPECT_EQ(all[3].timeMs, 200);
    std::filesystem::remove(file);
}

TEST(RecordingReplay, OfSeveralDevicesTheFirstOfTheKindOrTheOneNamed)
{
    const std::string mouse = "R: 27 05 01 09 02 a1 01 05 09 19 01 29 01 95 01 75 08 81 02 05 01 09 30 09 31 95 02 81 06 c0\n";
    std::string text = "D: 0\n" + mouse.substr(0, 3) + "29" + mouse.substr(5) + "N: a mouse\nI: 3 046d c52b\nD: 1\n";
    text += elanRecording().text() + "D: 0\nE: 0.000000 3 01 05 05\nD: 1\n";
    const std::filesystem::path file = RecordingText(RecordingText::shipped("elan_04f3_300b.rdesc"), "pad", 1, 2).save("padkit-two-devices.hid");
    std::ofstream(file) << text;
    EXPECT_EQ(ReplayFile::open(file, SynDeviceTouchPad)->header().name, "ELAN0412:00 04F3:300B Touchpad");
    EXPECT_EQ(ReplayFile::open(file, SynDeviceTrackpoint)->header().name, "a mouse");
    EXPECT_EQ(ReplayFile::open(file, SynDeviceTrackpoint, 1)->header().name, "ELAN0412:00 04F3:300B Touchpad")
        << "the touchpad's own mouse collection";
    EXPECT_EQ(refusal(file, SynDeviceTouchPad, 0),
              "padkit-two-devices.hid:2: device 0: the descriptor has no touchpad collection (Digitizer page 0x0D, "
              "Touch Pad usage 0x05); a touchpad replays a touchpad's recording");
    EXPECT_EQ(refusal(file, SynDeviceTouchPad, 7),
              "padkit-two-devices.hid: device=7 names no device of the recording; its devices are 0, 1");
    std::filesystem::remove(file);
}

TEST(RecordingReplay, RefusesFaultsNamingFileAndLine)
{
    const std::string elanText = elanRecording().text();
    const auto saved = [](const std::string& text) {
        const std::filesystem::path file = std::filesystem::temp_directory_path() / "padkit-bad.hid";
        std::ofstream(file, std::ios::binary) << text;
        return file;
    };
    // No touchpad for the test asked: the first R: line.
    EXPECT_EQ(refusal(saved("R: 17 05 01 09 02 a1 01 09 30 09 31 75 08 95 02 81 06 c0\n"), SynDeviceTouchPad),
              "padkit-bad.hid:1: no descriptor of the recording has a touchpad collection (Digitizer page 0x0D, Touch "
              "Pad usage 0x05); a touchpad replays a touchpad's recording (a mouse's replays as trackpoint:FILE)");
    EXPECT_EQ(refusal(saved("R: 3 05 01 26\nE: 0.0 1 00\n"), SynDeviceTouchPad),
              "padkit-bad.hid:1: R: the report descriptor does not parse: byte 2: the descriptor is cut inside an item "
              "(0x26 needs 2 byte(s) of data, 0 left)");
    // Faults after the header come as the replay reads them, after the packets before them.
    const std::string good = "E: 0.000000 10 " + std::string("04 03 64 00 e8 03 50 00 01 00\n");
    EXPECT_EQ(refusal(saved(elanText + good + "E: 0.008000 10 04 03\n"), SynDeviceTouchPad),
              "padkit-bad.hid:8: E: says 10 bytes and gives 2; the count is the number of bytes that follow");
    EXPECT_EQ(refusal(saved(elanText + good + "E: 0.008000 10 04 03 64 00 e8 03 50 00 01 0g\n"), SynDeviceTouchPad),
              "padkit-bad.hid:8: E: \"0g\" is not a byte; bytes are two hex digits (00 to ff)");
    EXPECT_EQ(refusal(saved(elanText + "E: 1.000000 10 04 03 64 00 e8 03 50 00 01 00\n" + good), SynDeviceTouchPad),
              "padkit-bad.hid:8: E: time 0.000000 is before the previous report's 1.000000; times never go back");
    EXPECT_EQ(refusal(saved(std::string("\x7f" "ELF\x02\x01\x01\0\0\0", 10)), SynDeviceTouchPad),
              "padkit-bad.hid:1: binary data (a byte 0x02 at column 5); a HID recording is text");
    EXPECT_EQ(refusal(saved(std::string(2 * 1024 * 1024, 'R')), SynDeviceTouchPad),
              "padkit-bad.hid:1: a line longer than 1048576 bytes; no line of a session file or a HID "
              "recording is that long");
    std::filesystem::remove(std::filesystem::temp_directory_path() / "padkit-bad.hid");
}

TEST(RecordingReplay, ConvertWritesTheSessionThatReplaysToTheSamePackets)
{
    const std::filesystem::path in = sweepAndClick().save("padkit-convert.hid");
    const std::filesystem::path out = std::filesystem::temp_directory_path() / "padkit-convert.session";
    padkit::SessionConverter converter;
    const std::string said = converter.convert(in.string(), out.string());
    EXPECT_NE(said.find("touchpad \"ELAN0412:00 04F3:300B Touchpad\" HID\\VID_04F3&PID_300B, 23 frames over 0.176 s, "
                        "0 malformed frames"), std::string::npos) << said;
    const padkit::Session session = padkit::SessionParser::load(out);
    EXPECT_EQ(session.version, 2);
    EXPECT_EQ(session.widthMm, 104.9);
    const std::vector<Packet> replayed = packets(*ReplayFile::open(in, SynDeviceTouchPad));
    ASSERT_EQ(session.packets.size(), replayed.size());
    for (std::size_t i = 0; i < replayed.size(); ++i) {
        EXPECT_EQ(padkit::SessionWriter::packetFields(session.packets[i]), padkit::SessionWriter::packetFields(replayed[i]));
    }

    // A fault in the file: the conversion is refused and leaves nothing.
    std::ofstream(in, std::ios::app) << "E: 9.000000 2 04\n";
    try {
        converter.convert(in.string(), out.string());
        ADD_FAILURE() << "converted";
    } catch (const harn5::HarnException& error) {
        EXPECT_NE(error.toString().utf8().find("padkit-convert.hid:53: E: says 2 bytes and gives 1"), std::string::npos)
            << error.toString().utf8();
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    std::filesystem::remove(in);
}

}  // namespace
