// Command-line options, parameter values and device descriptions: what is accepted and how
// bad input is refused before any test runs.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostHarness.h"
#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "harn5/ParameterParser.h"

using namespace harn5;

namespace {

using Args = std::vector<std::string>;

// The HarnException text of a refused run (empty when it was not refused).
std::string refusal(HostHarness& harness, const Args& args)
{
    try {
        harness.run(args);
    } catch (const HarnException& e) {
        return e.toString().utf8();
    }
    return {};
}

}  // namespace

TEST(ParameterValues, AreReadAsTheirRegisteredType)
{
    struct Case {
        Args args;
        bool untilFinished;
        unsigned int mouseType;
        std::vector<std::string> pnp;
    };
    const std::vector<Case> cases = {
        {{"--test", "MouseTest", "--param", "bDisablePassUntilFinished=YES"}, true, 0, {}},
        {{"--test", "MouseTest", "--param", "bDisablePassUntilFinished=False"}, false, 0, {}},
        {{"--test", "MouseTest", "--param=iForceMouseType=4294967295"}, false, 4294967295u, {}},
        {{"--test", "MouseTest", "--param", "iForceMouseType=007"}, false, 7, {}},
        {{"--test", "TrackPointTest", "--no-system-devices", "--param",
          "ExcludedThreeButtonDisplayByPnPID=LEN0042; SYN1 ;", "--param", "ExcludedThreeButtonDisplayByPnPID=ABC"},
         false, 0, {"LEN0042", "SYN1", "ABC"}},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        harness.run(c.args);
        SCOPED_TRACE(c.args.back());
        EXPECT_EQ(harness.untilFinished->value().valueBool(), c.untilFinished);
        EXPECT_EQ(harness.mouseType->value().valueUint32(), c.mouseType);
        const Value pnp = harness.pnpList->value();
        ASSERT_EQ(pnp.stringArraySize(), c.pnp.size());
        for (unsigned int i = 0; i < c.pnp.size(); ++i) {
            EXPECT_EQ(pnp.getStringInArray(i).utf8(), c.pnp[i]);
        }
        EXPECT_EQ(harness.pnpList->isset(), !c.pnp.empty());
    }
}

TEST(ParameterValues, UnsetOnesReadAsFalseZeroAndEmpty)
{
    HostHarness harness;
    harness.run({"--test", "MouseTest", "--param", "iForceMouseType=3"});
    harness.run({"--test", "MouseTest"});   // a later start forgets earlier values
    EXPECT_FALSE(harness.mouseType->isset());
    EXPECT_EQ(harness.mouseType->value().valueUint32(), 0u);
    EXPECT_FALSE(harness.untilFinished->value().valueBool());
    EXPECT_EQ(harness.pnpList->value().stringArraySize(), 0u);
    EXPECT_THROW(harness.pnpList->value().getStringInArray(0), HarnException);
}

TEST(ParameterValues, NoTextAtAllIsTheEmptyValueOfEveryType)
{
    for (const DataType* type : {&DataType::BOOLEAN(), &DataType::UINT32(), &DataType::STRINGARRAY()}) {
        const Parameter parameter("p", *type, "");
        const Value value = ParameterParser::parse(parameter, {});
        EXPECT_FALSE(value.valueBool());
        EXPECT_EQ(value.valueUint32(), 0u);
        EXPECT_EQ(value.stringArraySize(), 0u);
    }
}

TEST(BadInput, IsRefusedWithOneMessageNamingCulpritAndRemedy)
{
    struct Case {
        Args args;
        std::vector<std::string> fragments;
    };
    const std::vector<Case> cases = {
        {{"--test", "MouseTest", "--param", "bNoSuchThing=1"}, {"bNoSuchThing", "iForceMouseType"}},
        {{"--test", "MouseTest", "--param", "bDisablePassUntilFinished=perhaps"}, {"perhaps", "yes or no"}},
        {{"--test", "MouseTest", "--param", "bDisablePassUntilFinished="}, {"bDisablePassUntilFinished", "BOOLEAN"}},
        {{"--test", "MouseTest", "--param", "iForceMouseType=4294967296"}, {"4294967296", "0 to 4294967295"}},
        {{"--test", "MouseTest", "--param", "iForceMouseType=-1"}, {"-1", "UINT32"}},
        {{"--test", "MouseTest", "--param", "iForceMouseType=12abc"}, {"12abc"}},
        {{"--test", "MouseTest", "--param", "iForceMouseType=1", "--param", "iForceMouseType=2"}, {"2 times"}},
        {{"--test", "TouchpadTest", "--param", "iForceMouseType=1"}, {"iForceMouseType", "TouchpadTest takes"}},
        {{"--list", "--param", "iForceMouseType=1"}, {"iForceMouseType", "--test"}},
        {{"--test", "MouseTest", "--param", "iForceMouseType"}, {"NAME=VALUE"}},
        {{"--test", "NoSuchTest"}, {"NoSuchTest", "TouchpadTest, TrackPointTest, MouseTest"}},
        {{"--test"}, {"--test needs a value"}},
        {{"--test", "--report", "r.json"}, {"--test needs a value"}},
        {{"--frobnicate"}, {"--frobnicate", "--help"}},
        {{"MouseTest"}, {"MouseTest", "--"}},
        {{"--list=yes"}, {"--list takes no value"}},
        {{"--list", "--log-level", "7"}, {"7", "1 (trace)"}},
        {{"--list", "--log-level", "=3"}, {"logger name"}},
        {{"--list", "--stop-after", "-1"}, {"-1", "seconds"}},
        {{"--list", "--stop-after", "1e3"}, {"1e3"}},
        {{"--list", "--host-window", "0xZZ"}, {"0xZZ", "window handle"}},
        {{"--list", "--os", "win7"}, {"win7", "winpe10"}},
        {{"--list", "--lang", "xx"}, {"xx.lang", "de, en"}},
        {{"--list", "--lang", "/nonexistent/missing.lang"}, {"missing.lang", "cannot be read"}},
        {{"--list", "--log-file", "/nonexistent/dir/x.log"}, {"x.log"}},
        {{"--list", "--report", "/nonexistent/dir/r.json"}, {"r.json"}},
        {{"--test", "MouseTest", "--device", "Mouse+Keyboard"}, {"Keyboard", "SynapticsTouchPad"}},
        {{}, {"no test given; --list shows the tests, --list-devices the devices, --help the options"}},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        const std::string message = refusal(harness, c.args);
        SCOPED_TRACE(c.args.empty() ? std::string("(nothing)") : c.args.back());
        ASSERT_FALSE(message.empty());
        EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        for (const std::string& fragment : c.fragments) {
            EXPECT_NE(message.find(fragment), std::string::npos) << message;
        }
        EXPECT_TRUE(harness.devicesSeen.empty());
        EXPECT_TRUE(harness.out.str().empty());
    }
}

TEST(Options, ValuesAreTakenInEitherForm)
{
    const Options options = CommandLine::parse({"--stop-after", "2.5", "--host-window=0x1F", "--log-level",
                                                "kstrmouse.synaptics=2", "--log-level", "3", "--test", "A",
                                                "--test", "A", "--os", "winpe10", "--stop-file", "s"});
    EXPECT_DOUBLE_EQ(*options.stopAfterSeconds, 2.5);
    EXPECT_EQ(options.hostWindow, 31u);
    ASSERT_EQ(options.loggerLevels.size(), 1u);
    EXPECT_EQ(options.loggerLevels[0].first, "kstrmouse.synaptics");
    EXPECT_EQ(options.loggerLevels[0].second, 2);
    EXPECT_EQ(*options.logLevel, 3);
    EXPECT_EQ(options.tests, (std::vector<std::string>{"A", "A"}));
    EXPECT_EQ(options.os, "winpe10");
    EXPECT_DOUBLE_EQ(*CommandLine::parse({"--stop-after", ".25"}).stopAfterSeconds, 0.25);
}

TEST(DeviceSpec, CarriesCapabilitiesPropertiesAndName)
{
    const DiagDevice pad = CommandLine::parseDevice(
        "SynapticsTouchPad+SynapticsMouse+Mouse, SP_Handle=1,SP_PnPID=LEN0042,name=Test pad, Blank=", 1);
    EXPECT_EQ(pad.name().utf8(), "Test pad");
    EXPECT_TRUE(pad.hasCapability(DeviceCapability::Mouse() | DeviceCapability::SynapticsTouchPad()));
    EXPECT_FALSE(pad.hasCapability(DeviceCapability::SynapticsTrackpoint()));
    ASSERT_NE(pad.property("SP_Handle"), nullptr);
    EXPECT_EQ(pad.property("SP_Handle")->value().valueInt32(), 1);
    EXPECT_EQ(pad.property("SP_PnPID")->value().valueString().utf8(), "LEN0042");
    EXPECT_EQ(pad.property("Blank")->value().valueString().utf8(), "");
    EXPECT_EQ(pad.property("name"), nullptr);
    EXPECT_EQ(pad.property("SP_Missing"), nullptr);

    const DiagDevice unnamed = CommandLine::parseDevice("Mouse", 3);
    EXPECT_EQ(unnamed.name().utf8(), "Device 3 (Mouse)");
    EXPECT_TRUE(unnamed.properties().empty());
    EXPECT_EQ(CommandLine::parseDevice("Mouse, name = ", 4).name().utf8(), "Device 4 (Mouse)");
}

TEST(DeviceSpec, BadOnesNameTheProblem)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "capability is missing"},
        {"Mouse+", "capability is missing"},
        {"mouse", "unknown capability \"mouse\""},
        {"Mouse,SP_Handle", "\"SP_Handle\" is not PROPERTY=VALUE"},
        {"Mouse,=1", "is not PROPERTY=VALUE"},
        {"Mouse,SP_Handle=1,SP_Handle=2", "\"SP_Handle\" is given twice"},
    };
    for (const auto& [description, fragment] : cases) {
        try {
            CommandLine::parseDevice(description, 1);
            ADD_FAILURE() << description << " was accepted";
        } catch (const HarnException& e) {
            EXPECT_NE(e.toString().utf8().find(fragment), std::string::npos) << e.toString().utf8();
        }
    }
}

TEST(DeviceProperty, ValuesOfTheWrongKindThrowInsteadOfGuessing)
{
    const DiagDevice device = CommandLine::parseDevice("Mouse,SP_Handle=0x10,Big=2147483648,Low=-2147483648", 1);
    EXPECT_THROW(device.property("SP_Handle")->value().valueInt32(), HarnException);
    EXPECT_THROW(device.property("Big")->value().valueInt32(), HarnException);
    EXPECT_EQ(device.property("Low")->value().valueInt32(), -2147483647 - 1);
    EXPECT_EQ(device.property("Big")->value().valueUint32(), 2147483648u);
    // Control characters of the value are shown in the message, and a NUL does not end it.
    const DiagDevice odd = CommandLine::parseDevice(std::string("Mouse,P=1\0\r2", 12), 1);
    try {
        odd.property("P")->value().valueInt32();
        ADD_FAILURE() << "accepted";
    } catch (const HarnException& e) {
        EXPECT_STREQ(e.what(), "value \"1\\x00\\x0D2\" is not a decimal 32-bit integer");
    }
}
