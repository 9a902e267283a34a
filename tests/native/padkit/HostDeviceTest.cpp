#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "RecordingText.h"
#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "harn5/Host.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/SessionDeviceProvider.h"
#include "padkit/SessionParser.h"
#include "padkit/SynapticsHelper.h"

using harn5::CommandLine;
using harn5::DeviceCapability;
using harn5::DiagDevice;
using harn5::HarnException;

namespace {

const std::string kSessions = std::string(KSTR_SOURCE_DIR) + "/resources/padkit-sessions/";

std::string text(const DiagDevice& d, const char* name)
{
    const harn5::DeviceProperty* p = d.property(name);
    return p == nullptr ? "(absent)" : p->text().utf8();
}

class HostDevices : public ::testing::Test {
protected:
    HostDevices()
    {
        m_providers["touchpad"] = std::make_unique<padkit::SessionDeviceProvider>(SynDeviceTouchPad, m_registry);
        m_providers["trackpoint"] = std::make_unique<padkit::SessionDeviceProvider>(SynDeviceTrackpoint, m_registry);
    }

    DiagDevice device(const std::string& description)
    {
        return CommandLine::parseDevice(description, 2, &m_providers);
    }

    padkit::DeviceRegistry m_registry;
    harn5::DeviceProviders m_providers;
};

std::vector<SynDeviceType> s_typesSeen;   // test entries are plain functions: they report here

harn5::TestResult recordType(const DiagDevice& device)
{
    s_typesSeen.push_back(SynapticsHelper::getDeviceType(device.property("SP_Handle")->value().valueInt32()));
    return harn5::TestResult::PASS();
}

}  // namespace

TEST_F(HostDevices, SessionDevicesAreRegisteredAndDescribedFromTheFileAndSettings)
{
    const DiagDevice pad = device("touchpad:" + kSessions + "touchpad-complete.session");
    EXPECT_EQ(pad.capability(), DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                                    DeviceCapability::SynapticsTouchPad());
    EXPECT_EQ(pad.name().utf8(), "Touchpad 2 (touchpad-complete.session)");
    EXPECT_EQ(text(pad, "SP_PnPID"), "SYN1E1F");
    EXPECT_EQ(text(pad, "SynapticsBlacklistVersion"), "(absent)");
    const auto entry = m_registry.find(pad.property("SP_Handle")->value().valueInt32());
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->type, SynDeviceTouchPad);
    EXPECT_TRUE(entry->session.is_absolute());
    EXPECT_FALSE(entry->loop || entry->clock.isUnpaced());

    // speed and loop steer the replay; every other setting is a property and wins.
    const DiagDevice stick = device("trackpoint:" + kSessions +
                                    "trackpoint-buttons.session, speed=max, loop=true, SP_PnPID= ACPI\\LEN0099 ,"
                                    "SynapticsBlacklistVersion=,name=Stick");
    EXPECT_TRUE(stick.hasCapability(DeviceCapability::SynapticsTrackpoint()));
    EXPECT_FALSE(stick.hasCapability(DeviceCapability::SynapticsTouchPad()));
    EXPECT_EQ(stick.name().utf8(), "Stick");
    EXPECT_EQ(text(stick, "SP_PnPID"), "ACPI\\LEN0099");
    EXPECT_EQ(text(stick, "SynapticsBlacklistVersion"), "");
    EXPECT_EQ(text(stick, "speed") + text(stick, "loop"), "(absent)(absent)");
    const auto stickEntry = m_registry.find(stick.property("SP_Handle")->value().valueInt32());
    ASSERT_TRUE(stickEntry.has_value());
    EXPECT_TRUE(stickEntry->loop && stickEntry->clock.isUnpaced());

    const DiagDevice stranger = device("touchpad:" + kSessions + "touchpad-blacklisted.session,SP_Handle=-7");
    EXPECT_EQ(text(stranger, "SP_Handle"), "-7");
    EXPECT_EQ(text(stranger, "SynapticsBlacklistVersion"), "19.0.12.98");
}

TEST_F(HostDevices, BadDevicesGetOneClearMessage)
{
    const std::filesystem::path bad = std::filesystem::temp_directory_path() / "padkit-bad.session";
    // The header is checked at once; a packet only as it is replayed.
    std::ofstream(bad) << "padkit-session 1\ndevice touchpad\nx-range 0 10\ny-range 10 0\n0 1 5 5 99 0 0 0 -\n";
    const std::string pad = "touchpad:" + kSessions + "touchpad-complete.session";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"touchpad:" + bad.string(), "padkit-bad.session:4: y-range \"10 0\" runs backwards"},
        {"touchpad:", "the file is missing; give touchpad:FILE"},
        {"touchpad:" + kSessions + "none.session", "none.session: cannot be read"},
        {"touchpad:" + kSessions + "trackpoint-buttons.session", "the session records a trackpoint; give it as trackpoint:FILE"},
        {pad + ",speed=0", "speed \"0\" is not a replay speed"},
        {pad + ",loop=yes", "loop \"yes\" is not true or false"},
        {"mousepad:x.session", "unknown device kind \"mousepad\"; give KIND:SOURCE with a kind from touchpad, trackpoint"},
    };
    for (const auto& [description, fragment] : cases) {
        try {
            device(description);
            ADD_FAILURE() << description << " was accepted";
        } catch (const HarnException& e) {
            EXPECT_NE(e.toString().utf8().find(fragment), std::string::npos) << e.toString().utf8();
        }
    }
    std::filesystem::remove(bad);
}

TEST_F(HostDevices, ARecordingIsADeviceAsTheRecordingNamesIt)
{
    RecordingText recording(RecordingText::shipped("sipodev_0603_0002.rdesc"), "SPPT2600:00 0603:0002 Touchpad", 0x0603,
                            0x0002);
    const std::filesystem::path file = recording.save("padkit-host.hid");
    const DiagDevice pad = device("touchpad:" + file.string() + ",speed=max");
    EXPECT_EQ(pad.name().utf8(), "Touchpad 2 (padkit-host.hid: SPPT2600:00 0603:0002 Touchpad)");
    EXPECT_EQ(text(pad, "Kind"), "touchpad");
    EXPECT_EQ(text(pad, "VID") + ":" + text(pad, "PID"), "0603:0002");
    EXPECT_EQ(text(pad, "SP_PnPID"), "HID\\VID_0603&PID_0002");
    EXPECT_EQ(text(pad, "PadSize"), "94.0 x 51.0 mm");
    EXPECT_EQ(text(pad, "ContactsPerReport"), "1");
    EXPECT_EQ(text(pad, "ReplayedFile"), file.string());
    // Its own mouse collection replays as a stick; device= picks one of several.
    const DiagDevice stick = device("trackpoint:" + file.string() + ",device=0,VID=1234");
    EXPECT_EQ(text(stick, "Kind"), "pointing stick");
    EXPECT_EQ(text(stick, "VID"), "1234") << "a property given wins";
    EXPECT_EQ(m_registry.find(stick.property("SP_Handle")->value().valueInt32())->recordedDevice, 0U);
    for (const auto& [description, fragment] :
         std::vector<std::pair<std::string, std::string>>{{"touchpad:" + file.string() + ",device=x", "device \"x\" is not a device number"},
                                                          {"touchpad:" + file.string() + ",device=3", "device=3 names no device"},
                                                          {"touchpad:" + kSessions + "touchpad-complete.session,device=0",
                                                           "device=0 picks a device of a HID recording"}}) {
        try {
            device(description);
            ADD_FAILURE() << description << " was accepted";
        } catch (const HarnException& e) {
            EXPECT_NE(e.toString().utf8().find(fragment), std::string::npos) << e.toString().utf8();
        }
    }
    std::filesystem::remove(file);
}

TEST(HostDeviceKinds, HostHandsSessionDevicesToTestsAndSkipsThemWithoutProviders)
{
    harn5::Host host;
    std::ostringstream out;
    host.setOutput(out, out);
    const DeviceCapability synaptics = DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse();
    host.createTest("TouchpadTest", synaptics | DeviceCapability::SynapticsTouchPad(), recordType);
    host.createTest("TrackPointTest", synaptics | DeviceCapability::SynapticsTrackpoint(), recordType);
    padkit::SessionDeviceProvider::registerWith(host);
    const std::vector<std::string> arguments = {
        "--no-system-devices", "--device", "trackpoint:" + kSessions + "trackpoint-stick-only.session", "--device",
        "touchpad:" + kSessions + "touchpad-middle-only.session", "--test", "TouchpadTest", "--test", "TrackPointTest"};
    std::vector<const char*> argv{"kstrmouse.kmx"};
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    host.setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
    s_typesSeen.clear();
    EXPECT_EQ(host.start(), 0) << out.str();
    EXPECT_EQ(s_typesSeen, (std::vector<SynDeviceType>{SynDeviceTouchPad, SynDeviceTrackpoint}));

    // The early look at the options (for logging) knows no kinds yet and must not fail on them.
    const harn5::Options early = CommandLine::parse({"--device", "touchpad:x.session", "--device", "Mouse"});
    ASSERT_EQ(early.devices.size(), 1u);
    EXPECT_EQ(early.devices[0].name().utf8(), "Device 1 (Mouse)");
    // A colon after the first comma belongs to a property, not to a kind.
    EXPECT_EQ(CommandLine::parseDevice("Mouse,name=A: b", 1).name().utf8(), "A: b");
}

TEST(HostDeviceKinds, ConvertWritesTheSessionAndRunsNothingElse)
{
    const auto run = [](const std::vector<std::string>& arguments, std::string& said) {
        harn5::Host host;
        std::ostringstream out;
        host.setOutput(out, out);
        padkit::SessionDeviceProvider::registerWith(host);
        std::vector<const char*> argv{"kstrmouse.kmx"};
        for (const std::string& argument : arguments) {
            argv.push_back(argument.c_str());
        }
        host.setCmdLineArgs(static_cast<int>(argv.size()), argv.data());
        try {
            const int status = host.start();
            said = out.str();
            return status;
        } catch (const HarnException& e) {
            said = e.toString().utf8();
            return 7;
        }
    };
    const std::string out = (std::filesystem::temp_directory_path() / "padkit-converted.session").string();
    std::string said;
    EXPECT_EQ(run({"--convert", kSessions + "trackpoint-buttons.session", out}, said), 0);
    EXPECT_NE(said.find("Wrote " + out + " (session version 2) from "), std::string::npos) << said;
    EXPECT_EQ(padkit::SessionParser::load(out).type, SynDeviceTrackpoint);
    EXPECT_EQ(run({"--convert", kSessions + "trackpoint-buttons.session"}, said), 7);
    EXPECT_NE(said.find("needs the path of the session file to write after it"), std::string::npos) << said;
    EXPECT_EQ(run({"--convert", kSessions + "trackpoint-buttons.session", out, "--test", "TouchpadTest"}, said), 7);
    EXPECT_NE(said.find("--convert writes a file and runs nothing else"), std::string::npos) << said;
    EXPECT_EQ(run({"--convert", kSessions + "none.session", out}, said), 7);
    EXPECT_NE(said.find("none.session: cannot be read"), std::string::npos) << said;
    std::filesystem::remove(out);
}
