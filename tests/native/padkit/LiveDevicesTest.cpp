#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "padkit/LiveDeviceCatalog.h"
#include "padkit/StickDeviceProvider.h"

using harn5::DeviceCapability;
using harn5::DiagDevice;
using harn5::HarnException;
using rawkit::DeviceInfo;
using rawkit::DeviceKind;

namespace {

DeviceInfo device(DeviceKind kind, const std::string& path, bool rawMouse)
{
    DeviceInfo info;
    info.kind = kind;
    info.path = path;
    info.hardwareId = path.substr(4, path.rfind('#') - 4);
    info.hardwareId[3] = '\\';
    info.vid = 0x845E;
    info.pid = 0x0001;
    info.rawMouse = rawMouse;
    info.buttons = 5;
    info.sampleRate = 100;
    return info;
}

DeviceInfo touchpad(DeviceInfo info)
{
    info.touch = rawkit::TouchLayout{};
    return info;
}

// A laptop: a mouse collection, its touchpad, a stick and a pen.
std::vector<DeviceInfo> laptop()
{
    return {device(DeviceKind::Mouse, R"(\\?\HID#VID_845E&PID_0001#1)", true),
            touchpad(device(DeviceKind::Touchpad, R"(\\?\HID#VID_845E&PID_0002&COL02#1)", false)),
            device(DeviceKind::Mouse, R"(\\?\HID#VID_845E&PID_0003&MI_01#1)", true),
            device(DeviceKind::Other, R"(\\?\HID#VID_845E&PID_0004#1)", false)};
}

std::string text(const DiagDevice& d, const char* name)
{
    const harn5::DeviceProperty* p = d.property(name);
    return p == nullptr ? "(absent)" : p->text().utf8();
}

std::string refusal(const std::function<void()>& make)
{
    try {
        make();
    } catch (const HarnException& e) {
        return e.toString().utf8();
    }
    return "(accepted)";
}

}  // namespace

TEST(LiveDevices, EachKindIsOfferedToItsTestsWithWhatTheSystemSaysOfIt)
{
    padkit::DeviceRegistry registry;
    const std::vector<DiagDevice> found = padkit::LiveDeviceCatalog(registry, "rec.session").describe(laptop());
    ASSERT_EQ(found.size(), 4U);

    EXPECT_EQ(found[0].name().utf8(), "Mouse 0 (845E:0001)");
    EXPECT_EQ(found[0].capability(), DeviceCapability::Mouse());
    EXPECT_EQ(text(found[0], "SP_Handle"), "(absent)");   // the mouse tests take it
    EXPECT_EQ(text(found[0], "InterfacePath"), R"(\\?\HID#VID_845E&PID_0001#1)");
    EXPECT_EQ(text(found[0], "SP_PnPID"), R"(HID\VID_845E&PID_0001)");
    EXPECT_EQ(text(found[0], "VID"), "845E");
    EXPECT_EQ(text(found[0], "Buttons"), "5");
    EXPECT_EQ(text(found[0], "SampleRate"), "100");
    EXPECT_EQ(text(found[0], "HorizontalWheel"), "false");
    EXPECT_EQ(text(found[0], "Kind"), "mouse");

    EXPECT_EQ(found[1].name().utf8(), "Touchpad 1 (845E:0002)");
    EXPECT_TRUE(found[1].hasCapability(DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                                       DeviceCapability::SynapticsTouchPad()));
    const auto entry = registry.find(std::stol(text(found[1], "SP_Handle")));
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->type, SynDeviceTouchPad);
    EXPECT_EQ(entry->liveDevice, R"(\\?\HID#VID_845E&PID_0002&COL02#1)");
    EXPECT_EQ(entry->record, "rec.session");

    EXPECT_EQ(text(found[1], "PadSize"), "unknown");
    EXPECT_EQ(text(found[1], "ContactsPerReport"), "1");
    EXPECT_EQ(text(found[0], "PadSize"), "(absent)");

    EXPECT_TRUE(found[3].capability().empty());   // listed, but no test runs on a pen
    EXPECT_EQ(text(found[3], "Kind"), "other");
}

TEST(LiveDevices, ATouchpadsSizeIsListedInMillimetresWhenItsDescriptorSaysIt)
{
    rawkit::TouchLayout layout;
    layout.widthMm = 101.3;
    layout.heightMm = 57.94;
    EXPECT_EQ(padkit::LiveDeviceCatalog::padSize(layout), "101.3 x 57.9 mm");
    layout.heightMm.reset();
    EXPECT_EQ(padkit::LiveDeviceCatalog::padSize(layout), "unknown");
}

TEST(LiveDevices, ATouchpadWhoseReportsCannotBeReadIsRefusedByName)
{
    padkit::DeviceRegistry registry;
    std::vector<DeviceInfo> devices = laptop();
    devices[1].problem = "its reports have no X usage";
    const std::string message =
        refusal([&] { padkit::LiveDeviceCatalog(registry, "").describe(devices); });
    EXPECT_NE(message.find("Touchpad 1"), std::string::npos) << message;
    EXPECT_NE(message.find(R"(PID_0002&COL02)"), std::string::npos) << message;
    EXPECT_NE(message.find("no X usage"), std::string::npos) << message;
}

TEST(LiveDevices, AStickIsNamedByIndexOrByPartOfItsPathOrId)
{
    padkit::DeviceRegistry registry;
    harn5::DeviceProviders providers;
    providers["stick"] = std::make_unique<padkit::StickDeviceProvider>([] { return laptop(); }, registry);
    const auto make = [&](const std::string& description) {
        return harn5::CommandLine::parseDevice(description, 1, &providers, "stick.session");
    };

    const DiagDevice byIndex = make("stick:2");
    EXPECT_EQ(byIndex.name().utf8(), "Pointing stick 2 (845E:0003)");
    EXPECT_TRUE(byIndex.hasCapability(DeviceCapability::Mouse() | DeviceCapability::SynapticsMouse() |
                                      DeviceCapability::SynapticsTrackpoint()));
    EXPECT_EQ(text(byIndex, "Kind"), "pointing stick");
    const auto entry = registry.find(std::stol(text(byIndex, "SP_Handle")));
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->type, SynDeviceTrackpoint);
    EXPECT_EQ(entry->record, "stick.session");

    const DiagDevice byText = make("stick:pid_0003&mi_01,SP_PnPID=LEN0042");
    EXPECT_EQ(text(byText, "InterfacePath"), R"(\\?\HID#VID_845E&PID_0003&MI_01#1)");
    EXPECT_EQ(text(byText, "SP_PnPID"), "LEN0042");   // a setting wins over what the system says

    EXPECT_NE(refusal([&] { make("stick:4"); }).find("this machine has 4 pointing device(s)"), std::string::npos);
    EXPECT_NE(refusal([&] { make("stick:LEN9999"); }).find("contains \"LEN9999\""), std::string::npos);
    EXPECT_NE(refusal([&] { make("stick:VID_845E"); }).find("4 devices match"), std::string::npos);
    EXPECT_NE(refusal([&] { make("stick:1"); }).find("is a touchpad"), std::string::npos);
    EXPECT_NE(refusal([&] { make("stick:"); }).find("no device is named"), std::string::npos);
}

TEST(LiveDevices, RecordingsOfOneInvocationNeverOverwriteEachOther)
{
    padkit::DeviceRegistry registry;
    const std::filesystem::path base = std::filesystem::path("out") / "pad.session";
    EXPECT_EQ(registry.claimRecording(base), base);
    EXPECT_EQ(registry.claimRecording(base), std::filesystem::path("out") / "pad-2.session");
    EXPECT_EQ(registry.claimRecording("other"), "other");
    EXPECT_EQ(registry.claimRecording(base), std::filesystem::path("out") / "pad-3.session");
}

TEST(LiveDevices, ARecordingPathIsCheckedBeforeAnythingRunsAndNothingIsLeftBehind)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kstr-record-check";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const std::string file = (folder / "pad.session").string();

    const harn5::Options options = harn5::CommandLine::parse({"--record", file, "--test", "TouchpadTest"});
    EXPECT_EQ(options.recordPath, file);
    EXPECT_FALSE(std::filesystem::exists(file));   // checked, not made

    const auto refused = [](std::vector<std::string> arguments) {
        return refusal([&] { harn5::CommandLine::parse(arguments); });
    };
    EXPECT_NE(refused({"--record", (folder / "missing" / "x.session").string()}).find("folder does not exist"),
              std::string::npos);
    EXPECT_NE(refused({"--record", folder.string()}).find("is a folder"), std::string::npos);
    EXPECT_NE(refused({"--record", ""}).find("path is empty"), std::string::npos);
    std::filesystem::remove_all(folder);
}

TEST(LiveDevices, ADeviceNamedBeforeRecordStillRecords)
{
    padkit::DeviceRegistry registry;
    harn5::DeviceProviders providers;
    providers["stick"] = std::make_unique<padkit::StickDeviceProvider>([] { return laptop(); }, registry);
    const std::string file = (std::filesystem::temp_directory_path() / "kstr-late.session").string();
    const harn5::Options options = harn5::CommandLine::parse({"--device", "stick:0", "--record", file}, &providers);
    ASSERT_EQ(options.devices.size(), 1U);
    const auto entry = registry.find(std::stol(text(options.devices[0], "SP_Handle")));
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->record, file);
}
