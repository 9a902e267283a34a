#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "vhid/HexBytes.h"
#include "vhid/PadId.h"
#include "vhid/ReportScript.h"
#include "vhid/ReportShape.h"

using vhid::HexBytes;
using vhid::PadId;
using vhid::ReportScript;
using vhid::ReportShape;
using Bytes = std::vector<std::uint8_t>;

namespace {

std::string errorOf(const std::string& text)
{
    std::string error;
    EXPECT_FALSE(ReportScript::parse(text, error).has_value()) << text;
    return error;
}

}  // namespace

TEST(HexBytes, ReadsPairsWithOrWithoutBlanksAndSaysWhereItStops)
{
    std::string error;
    EXPECT_EQ(HexBytes::parse(" 05 0d\t09\r\n05 A1 ", error), (Bytes{0x05, 0x0D, 0x09, 0x05, 0xA1}));
    EXPECT_EQ(HexBytes::parse("050D0905", error), (Bytes{0x05, 0x0D, 0x09, 0x05}));
    EXPECT_EQ(HexBytes::parse("", error), Bytes{});
    EXPECT_FALSE(HexBytes::parse("05 0x0d", error));
    EXPECT_EQ(error, "\"x\" at character 5 is not a hex digit of a byte");
    EXPECT_FALSE(HexBytes::parse("05 d 09", error));   // one digit, then a blank
    EXPECT_EQ(error, "\" \" at character 5 is not a hex digit of a byte");
    EXPECT_FALSE(HexBytes::parse("05 0", error));
    EXPECT_EQ(error, "the last byte has one hex digit");
    EXPECT_EQ(HexBytes::format({0x03, 0xAB, 0x00}), "03 ab 00");
}

TEST(ReportScript, ReadsARecordingWithFeatureLinesOfOurOwn)
{
    const std::string text =
        "# SYNA3602:00 06CB:CE08 Touchpad\n"
        "# 0x05, 0x0d, // Usage Page (Digitizers)\n"
        "R: 4 05 0d 09 05\n"
        "N: SYNA3602:00 06CB:CE08 Touchpad\r\n"
        "P: i2c-SYNA3602:00\n"
        "I: 18 06cb ce08\n"
        "F: 000000.000000 2 08 03\n"
        "# ReportID: 3 / Confidence: 1 | Tip Switch: 1\n"
        "E: 000000.000000 3 03 01 ff\n"
        "E: 000001.500000 3 03 00 00\r\n"
        "E: 2.25 1 02\n";   // the older recorder's shorter time
    std::string error;
    const std::optional<ReportScript> script = ReportScript::parse(text, error);
    ASSERT_TRUE(script.has_value()) << error;
    EXPECT_EQ(script->descriptor, (Bytes{0x05, 0x0D, 0x09, 0x05}));
    EXPECT_EQ(script->vendorId, 0x06CB);
    EXPECT_EQ(script->productId, 0xCE08);
    ASSERT_EQ(script->reports.size(), 4U);
    EXPECT_TRUE(script->reports[0].feature);
    EXPECT_EQ(script->reports[0].bytes, (Bytes{0x08, 0x03}));
    EXPECT_FALSE(script->reports[1].feature);
    EXPECT_EQ(script->reports[2].micros, 1500000);
    EXPECT_EQ(script->reports[2].line, 10);
    EXPECT_EQ(script->reports[3].micros, 2000025);   // "2.25": 25 microseconds, as the reader takes it
}

TEST(ReportScript, TakesAPlainDescriptorInHex)
{
    std::ifstream in(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/elan_04f3_300b.rdesc");
    std::stringstream text;
    text << in.rdbuf();
    std::string error;
    const std::optional<ReportScript> script = ReportScript::parse(text.str(), error);
    ASSERT_TRUE(script.has_value()) << error;
    EXPECT_EQ(script->descriptor.size(), 361U);
    EXPECT_TRUE(script->reports.empty());
    EXPECT_FALSE(script->vendorId.has_value());
}

TEST(ReportScript, RefusesWhatItCannotReadNamingTheLine)
{
    EXPECT_EQ(errorOf("R: 3 05 0d\n"), "line 1: R: it says 3 bytes and has 2");
    EXPECT_EQ(errorOf("# c\nE: 0.000001 1 zz\n"), "line 2: E: \"z\" at character 2 is not a hex digit of a byte");
    EXPECT_EQ(errorOf("E: 12 1 03\n"), "line 1: E: the time is not <seconds>.<microseconds>");
    EXPECT_EQ(errorOf("E: 0.1000000 1 03\n"), "line 1: E: the time is not <seconds>.<microseconds>");
    EXPECT_EQ(errorOf("E: 0.000000 0\n"), "line 1: E: the report is empty");
    EXPECT_EQ(errorOf("E: 1.000000 1 03\nE: 0.999999 1 03\n"), "line 2: E: its time is before the report above it");
    EXPECT_EQ(errorOf("F: 0.000000 x 03\n"), "line 1: F: the byte count is not a number");
    EXPECT_EQ(errorOf("I: 18 6cb\n"), "line 1: I: it is not <bus> <vendor> <product> in hex");
    EXPECT_EQ(errorOf("D: 0\nR: 1 c0\nD: 1\n"), "line 3: D: it records several devices; give the virtual device one");
    EXPECT_EQ(errorOf("just words\n"),
              "neither a recording nor a descriptor in hex: \"j\" at character 1 is not a hex digit of a byte");
}

TEST(ReportShape, PadsAReportToItsCollectionsLengthAndRefusesOneThatDoesNotFit)
{
    ReportShape shape;
    shape.declare(3, 6, 0);
    shape.declare(8, 0, 2);
    EXPECT_TRUE(shape.has(3, ReportShape::Kind::Input));
    EXPECT_FALSE(shape.has(3, ReportShape::Kind::Feature));
    EXPECT_FALSE(shape.has(4, ReportShape::Kind::Input));

    std::string error;
    EXPECT_EQ(shape.fit({3, 1, 2}, ReportShape::Kind::Input, error), (Bytes{3, 1, 2, 0, 0, 0}));
    EXPECT_EQ(shape.fit({3, 1, 2, 3, 4, 5}, ReportShape::Kind::Input, error), (Bytes{3, 1, 2, 3, 4, 5}));
    EXPECT_EQ(shape.fit({8, 5}, ReportShape::Kind::Feature, error), (Bytes{8, 5}));

    const std::vector<std::pair<std::pair<Bytes, ReportShape::Kind>, std::string>> refused = {
        {{{3, 1, 2, 3, 4, 5, 6}, ReportShape::Kind::Input},
         "the input report 3 is 7 bytes, longer than the collection's 6"},
        {{{4, 1}, ReportShape::Kind::Input}, "the collection has no input report with id 4 (its ids: 3)"},
        {{{3, 1}, ReportShape::Kind::Feature}, "the collection has no feature report with id 3 (its ids: 8)"},
        {{{}, ReportShape::Kind::Input}, "an empty input report"},
    };
    for (const auto& [report, message] : refused) {
        EXPECT_FALSE(shape.fit(report.first, report.second, error).has_value());
        EXPECT_EQ(error, message);
    }
    EXPECT_FALSE(ReportShape().fit({1}, ReportShape::Kind::Feature, error).has_value());
    EXPECT_EQ(error, "the collection has no feature report with id 1 (it has none)");
}

TEST(PadId, IsFourHexDigitsEachAndNamesTheDeviceAsItsInterfacePathDoes)
{
    const std::optional<PadId> id = PadId::parse("06cb:CE08");
    ASSERT_TRUE(id.has_value());
    EXPECT_EQ(id->vendorId, 0x06CB);
    EXPECT_EQ(id->productId, 0xCE08);
    EXPECT_EQ(id->text(), "06CB:CE08");
    EXPECT_EQ(id->pathPart(), L"VID_06CB&PID_CE08");
    EXPECT_EQ(id->instanceId(), L"ROOT\\VID_06CB&PID_CE08\\0000");
    for (const char* bad : {"6cb:ce08", "06cb-ce08", "06cb:ce0g", "06cb:ce081", "", "+6cb:ce08", "06cb: ce0"}) {
        EXPECT_FALSE(PadId::parse(bad).has_value()) << bad;
    }
}
