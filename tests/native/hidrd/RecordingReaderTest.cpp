// The HID recording reader on recordings written here: one device and several, the lines it
// passes over, and each fault it refuses with the file and line.
#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>
#include <string>

#include "hidrd/RecordingError.h"
#include "hidrd/RecordingReader.h"

namespace {

using hidrd::RecordedReport;
using hidrd::RecordingReader;

const char* const kOneDevice =
    "# ELAN0412:00 04F3:300B Touchpad\r\n"
    "# 0x05, 0x01, // Usage Page (Generic Desktop)\r\n"
    "R: 4 05 01 09 02\r\n"
    "N: ELAN0412:00 04F3:300B Touchpad\r\n"
    "P: i2c-ELAN0412:00\r\n"
    "I: 18 04f3 300b\r\n"
    "# ReportID: 4 / Confidence: 1 | Tip Switch: 1\r\n"
    "E: 000000.000000 3 04 03 a0\r\n"
    "\r\n"
    "X: a kind of line nobody knows\r\n"
    "E: 000001.5 2 04 FF\r\n";

// Everything the reader says of a recording, or its refusal.
std::string read(const std::string& text)
{
    std::istringstream in(text);
    std::ostringstream said;
    try {
        RecordingReader reader(in, "pad.hid");
        for (const hidrd::RecordedDevice& d : reader.devices()) {
            said << (d.index ? " " : "") << "device " << d.index << " R:" << d.descriptorLine << " " << d.descriptor.size() << " bytes;";
        }
        RecordedReport report;
        while (reader.next(report)) {
            said << " " << report.device << "@" << report.timeUs << ":" << report.bytes.size();
        }
    } catch (const hidrd::RecordingError& error) {
        return error.what();
    }
    return said.str();
}

TEST(RecordingReader, OneDeviceItsHeaderAndItsReportsInOrder)
{
    std::istringstream in(kOneDevice);
    RecordingReader reader(in, "pad.hid");
    ASSERT_EQ(reader.devices().size(), 1U);
    const hidrd::RecordedDevice& device = reader.devices()[0];
    EXPECT_EQ(device.name, "ELAN0412:00 04F3:300B Touchpad");
    EXPECT_EQ(device.physicalPath, "i2c-ELAN0412:00");
    EXPECT_EQ(device.bus, 0x18);
    EXPECT_EQ(device.vendor, 0x04F3);
    EXPECT_EQ(device.product, 0x300B);
    EXPECT_EQ(device.descriptor, (std::vector<std::uint8_t>{0x05, 0x01, 0x09, 0x02}));
    EXPECT_EQ(device.descriptorLine, 3U);
    RecordedReport report;
    ASSERT_TRUE(reader.next(report));
    EXPECT_EQ(report.bytes, (std::vector<std::uint8_t>{0x04, 0x03, 0xA0}));
    EXPECT_EQ(report.line, 8U);
    ASSERT_TRUE(reader.next(report));
    EXPECT_EQ(report.timeUs, 1000005) << "the part after the point counts microseconds, as the tools read it";
    EXPECT_EQ(report.bytes, (std::vector<std::uint8_t>{0x04, 0xFF}));
    EXPECT_EQ(report.line, 11U);
    EXPECT_FALSE(reader.next(report));
}

TEST(RecordingReader, SeveralDevicesTellTheirReportsApartByDLines)
{
    EXPECT_EQ(read("D: 0\nR: 1 c0\nN: pad\nD: 1\nR: 2 c0 c0\nN: stick\n"
                   "D: 1\nE: 0.000000 1 01\nE: 0.000010 1 01\nD: 0\nE: 0.000020 2 03 00\nD: 1\nE: 0.000030 1 01\n"),
              "device 0 R:2 1 bytes; device 1 R:5 2 bytes; 1@0:1 1@10:1 0@20:2 1@30:1");
    EXPECT_TRUE(RecordingReader::begins("  D: 0"));
    EXPECT_TRUE(RecordingReader::begins("R: 4 05 01 09 02"));
    EXPECT_FALSE(RecordingReader::begins("padkit-session 2"));
    EXPECT_FALSE(RecordingReader::begins("E: 0.0 1 00")) << "a recording gives a device before its reports";
}

TEST(RecordingReader, RefusesEachFaultNamingFileAndLine)
{
    EXPECT_EQ(read("# a comment\nN: pad\nE: 0.000000 1 01\n"),
              "pad.hid:3: no R: line (a device's report descriptor) before the first E: line; a HID recording "
              "(hid-recorder) gives each device's R: line before its reports");
    EXPECT_EQ(read("padkit-session 2\ndevice touchpad\n"),
              "pad.hid:2: no R: line (a device's report descriptor) in the file; a HID recording (hid-recorder) gives "
              "each device's R: line before its reports");
    EXPECT_EQ(read("R: 1 c0\nE: 0.000000 3 01 02\n"),
              "pad.hid:2: E: says 3 bytes and gives 2; the count is the number of bytes that follow");
    EXPECT_EQ(read("R: 3 05 01\n"), "pad.hid:1: R: says 3 bytes and gives 2; the count is the number of bytes that follow");
    EXPECT_EQ(read("R: 1 c0\nE: 0.000000 2 01 zz\n"),
              "pad.hid:2: E: \"zz\" is not a byte; bytes are two hex digits (00 to ff)");
    EXPECT_EQ(read("R: 1 c0\nE: 0.000000 1 100\n"),
              "pad.hid:2: E: \"100\" is not a byte; bytes are two hex digits (00 to ff)");
    EXPECT_EQ(read("R: 1 c0\nE: 2.000000 1 01\nE: 1.999999 1 01\n"),
              "pad.hid:3: E: time 1.999999 is before the previous report's 2.000000; times never go back");
    EXPECT_EQ(read("R: 1 c0\nE: 12 1 01\n"),
              "pad.hid:2: E: time \"12\" is not a time; give SECONDS.MICROSECONDS (000012.345678)");
    EXPECT_EQ(read("R: 1 c0\nE: 0.0 1 01\nR: 1 c0\n"),
              "pad.hid:3: R: after the first report; a recording gives its devices before their reports");
    EXPECT_EQ(read("R: 1 c0\nE: 0.0 1 01\nD: 4\n"),
              "pad.hid:3: D: 4 names no device of the recording; its reports follow its R: line");
    EXPECT_EQ(read("R: 1 c0\nI: 18 04f3\n"),
              "pad.hid:2: I: is not BUS VENDOR PRODUCT; give three hex numbers of up to 4 digits (I: 18 06cb ce08)");
    EXPECT_EQ(read(std::string("R: 1 c0\nE: 0.0 1 01\n\x7f" "ELF\x02\x01\x01\x00", 27)),
              "pad.hid:3: binary data (a byte 0x02 at column 5); a HID recording is text");
}

// An endless line, made as it is read.
class EndlessLine : public std::streambuf {
public:
    std::size_t given = 0;

protected:
    int_type underflow() override
    {
        m_chunk.assign(4096, 'e');
        given += m_chunk.size();
        setg(m_chunk.data(), m_chunk.data(), m_chunk.data() + m_chunk.size());
        return traits_type::to_int_type('e');
    }

private:
    std::string m_chunk;
};

TEST(RecordingReader, ALineWithoutEndIsRefusedOnceItPassesTheLimit)
{
    EndlessLine endless;
    std::istream in(&endless);
    try {
        RecordingReader reader(in, "huge.hid");
        ADD_FAILURE() << "accepted";
    } catch (const hidrd::RecordingError& error) {
        EXPECT_STREQ(error.what(), "huge.hid:1: a line longer than 1048576 bytes; no line of a session file or a "
                                   "HID recording is that long");
    }
    EXPECT_LT(endless.given, 2U * RecordingReader::kMaxLine) << "read no further than the limit and a read";
}

}  // namespace
