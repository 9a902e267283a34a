// Live devices under Wine: the X pointer is a raw HID mouse (\\?\HID#VID_845E&PID_0001...), so a
// pointing stick can be opened on it; its removal arrives as the system's own message would.
#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "padkit/DeviceRegistry.h"
#include "padkit/SYNTestDevice.h"
#include "padkit/SessionParser.h"
#include "rawkit/RawInputDevices.h"

namespace {

using namespace std::chrono_literals;

class WatchedDevice : public SYNTestDevice {
public:
    using SYNTestDevice::SYNTestDevice;
    void OnSynDeviceRemoved() override { ++removals; }
    int removals = 0;
};

// The first device that reports as a mouse: the X pointer under Wine.
rawkit::DeviceInfo pointer()
{
    for (const rawkit::DeviceInfo& device : rawkit::RawInputDevices::enumerate({})) {
        if (device.rawMouse) {
            return device;
        }
    }
    return {};
}

long addStick(const std::string& path, const std::filesystem::path& record = {})
{
    padkit::DeviceRegistry::Entry entry;
    entry.type = SynDeviceTrackpoint;
    entry.liveDevice = path;
    entry.record = record;
    return padkit::DeviceRegistry::process().add(entry);
}

void pumpFor(std::chrono::milliseconds span)
{
    const auto end = std::chrono::steady_clock::now() + span;
    while (std::chrono::steady_clock::now() < end) {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&msg);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

}  // namespace

TEST(LiveDevice, ThePointerIsListedWithWhatItsPathSays)
{
    const rawkit::DeviceInfo device = pointer();
    ASSERT_NE(device.handle, 0U) << "no raw mouse under this Wine";
    EXPECT_EQ(device.kind, rawkit::DeviceKind::Mouse);
    EXPECT_EQ(device.path.rfind(R"(\\?\HID#)", 0), 0U) << device.path;
    EXPECT_EQ(device.hardwareId.rfind(R"(HID\VID_)", 0), 0U) << device.hardwareId;
    EXPECT_TRUE(device.vid.has_value());
    EXPECT_GE(device.buttons, 3U);
    EXPECT_EQ(rawkit::RawInputDevices::interfacePath(device.handle), device.path);
}

TEST(LiveDevice, AStickOpensOnItsPathInAnyCaseAndRecordsItsHeader)
{
    const rawkit::DeviceInfo device = pointer();
    ASSERT_NE(device.handle, 0U);
    std::string lower = device.path;
    for (char& c : lower) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    const std::filesystem::path record = std::filesystem::temp_directory_path() / "kstr-live-stick.session";
    std::error_code ignored;
    std::filesystem::remove(record, ignored);
    {
        WatchedDevice stick(0);
        ASSERT_EQ(stick.Initialize(addStick(lower, record)), SYN_OK);
        // Readable while the device is open, as after a crash.
        const padkit::Session header = padkit::SessionParser::load(record);
        EXPECT_EQ(header.type, SynDeviceTrackpoint);
        EXPECT_LT(header.xLo, 0);
        EXPECT_EQ(header.pnpId, device.hardwareId);
        EXPECT_TRUE(header.packets.empty());   // nothing moved
        EXPECT_FALSE(stick.readBuffer());
    }
    EXPECT_TRUE(std::filesystem::remove(record));
}

TEST(LiveDevice, ARemovedDeviceIsReportedOnceAndAnAbsentOneDoesNotOpen)
{
    const rawkit::DeviceInfo device = pointer();
    ASSERT_NE(device.handle, 0U);
    WatchedDevice stick(0);
    ASSERT_EQ(stick.Initialize(addStick(device.path)), SYN_OK);

    // Another device's removal is not this one's.
    const HWND receiver = FindWindowExW(HWND_MESSAGE, nullptr, L"rawkitReceiver", nullptr);
    ASSERT_NE(receiver, nullptr);
    SendMessageW(receiver, WM_INPUT_DEVICE_CHANGE, GIDC_REMOVAL, static_cast<LPARAM>(device.handle + 1000));
    EXPECT_EQ(stick.removals, 0);
    SendMessageW(receiver, WM_INPUT_DEVICE_CHANGE, GIDC_REMOVAL, static_cast<LPARAM>(device.handle));
    SendMessageW(receiver, WM_INPUT_DEVICE_CHANGE, GIDC_REMOVAL, static_cast<LPARAM>(device.handle));
    pumpFor(100ms);
    EXPECT_EQ(stick.removals, 1);

    WatchedDevice absent(0);
    EXPECT_EQ(absent.Initialize(addStick(R"(\\?\HID#VID_0000&PID_0000#gone)")), SYN_DEVICE_ABSENT);
    EXPECT_EQ(absent.removals, 0);
}

TEST(LiveDevice, ARecordingThatCannotBeMadeKeepsTheDeviceClosed)
{
    const rawkit::DeviceInfo device = pointer();
    ASSERT_NE(device.handle, 0U);
    WatchedDevice stick(0);
    EXPECT_EQ(stick.Initialize(addStick(device.path, "Z:\\nonexistent\\folder\\x.session")), SYN_RECORDING_FAILED);
}
