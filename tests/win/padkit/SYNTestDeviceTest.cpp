#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "padkit/DeviceRegistry.h"
#include "padkit/SYNTestDevice.h"

namespace {

using namespace std::chrono_literals;

// Dispatches this thread's messages until done() or the bound runs out; answers done().
bool pumpUntil(const std::function<bool()>& done, std::chrono::milliseconds bound = 10s)
{
    const auto end = std::chrono::steady_clock::now() + bound;
    while (!done() && std::chrono::steady_clock::now() < end) {
        MSG msg;
        while (!done() && PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
        if (!done()) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        }
    }
    return done();
}

void pumpFor(std::chrono::milliseconds span)
{
    pumpUntil([] { return false; }, span);
}

// What the device showed at each packet, read the way the controls read it.
struct Seen {
    long sequence;
    DWORD thread;
    std::int32_t x, y, width, stickX, stickY;
    bool finger, motion, left, right, middle;
};

class RecordingDevice : public SYNTestDevice {
public:
    using SYNTestDevice::SYNTestDevice;

    long OnSynDevicePacket(long sequence) override
    {
        const long r = SYNTestDevice::OnSynDevicePacket(sequence);
        EXPECT_TRUE(readBuffer());
        seen.push_back({sequence, GetCurrentThreadId(), fingerX, fingerY, fingerWidth, stickX, stickY,
                        isFingerPresent(), fingerMotion(), leftButtonPressed(), rightButtonPressed(),
                        middleButtonPressed()});
        if (onPacket) {
            // A copy: the callback may delete this device, and itself with it.
            const std::function<void()> callback = onPacket;
            callback();
        }
        return r;
    }

    void OnSynDeviceRemoved() override { removed = true; }

    std::vector<std::int32_t> ranges() const { return {xLo, xHi, yLo, yHi}; }

    std::vector<Seen> seen;
    bool removed = false;
    std::function<void()> onPacket;
};

class ReplayTest : public ::testing::Test {
protected:
    ~ReplayTest() override
    {
        for (const long handle : m_handles) {
            padkit::DeviceRegistry::process().remove(handle);
        }
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::filesystem::path write(const std::string& name, const std::string& text)
    {
        std::filesystem::create_directories(m_folder);
        const std::filesystem::path file = m_folder / name;
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    long add(const std::filesystem::path& file, const char* speed = "max", bool loop = false,
             SynDeviceType type = SynDeviceTouchPad)
    {
        padkit::DeviceRegistry::Entry entry;
        entry.type = type;
        entry.session = file;
        entry.clock = *padkit::ReplayClock::parse(speed);
        entry.loop = loop;
        m_handles.push_back(padkit::DeviceRegistry::process().add(entry));
        return m_handles.back();
    }

    static std::string pad(const std::string& packets, const char* range = "x-range 100 900\ny-range -50 50\n")
    {
        return std::string("padkit-session 1\ndevice touchpad\n") + range + packets;
    }

    std::filesystem::path m_folder = std::filesystem::temp_directory_path() /
                                     ("padkit-tests-" + std::to_string(GetCurrentProcessId()));
    std::vector<long> m_handles;
};

}  // namespace

TEST_F(ReplayTest, InitializeFailsForUnknownHandlesAndBadSessions)
{
    const long missing = add(m_folder / "missing.session");
    const long invalid = add(write("invalid.session", pad("", "x-range 100 90\ny-range 0 1\n")));
    const long otherKind = add(write("pad.session", pad("")), "max", false, SynDeviceTrackpoint);
    const long good = add(write("good.session", pad("0 1 1 1 1 0 0 0 -\n")));
    struct Case {
        long handle;
        _tagSYNStatus expected;
    };
    for (const Case& c : {Case{-1, SYN_UNKNOWN_HANDLE}, Case{missing, SYN_SESSION_UNREADABLE},
                          Case{invalid, SYN_SESSION_INVALID}, Case{otherKind, SYN_SESSION_INVALID},
                          Case{good, SYN_OK}}) {
        RecordingDevice device(c.handle);
        EXPECT_EQ(device.Initialize(c.handle), c.expected) << c.handle;
    }
}

TEST_F(ReplayTest, AFileThatGoesBadAfterItsHeaderStopsTheDeviceAfterItsLastGoodPacket)
{
    const long handle = add(write("late.session", pad("0 1 1 1 1 0 0 0 -\n5 1 2 2 99 0 0 0 -\n9 1 3 3 3 0 0 0 -\n")));
    RecordingDevice device(handle);
    ASSERT_EQ(device.Initialize(handle), SYN_OK) << "its header is good";
    ASSERT_TRUE(pumpUntil([&] { return device.removed; }));
    ASSERT_EQ(device.seen.size(), 1u);
    EXPECT_EQ(device.seen[0].x, 1);
}

TEST_F(ReplayTest, PacketsArriveInOrderOnTheUiThreadAndReadBufferFillsTheFields)
{
    const long handle = add(write("order.session",
                                  pad("0 1 100 -50 1 0 0 0 -\n"
                                      "0 1 500 7 15 1 0 0 L\n"
                                      "1 0 0 0 0 0 -3 4 RM\n"
                                      "1 1 900 50 0 1 0 0 LRM\n")));
    RecordingDevice device(handle);
    EXPECT_FALSE(device.readBuffer());
    ASSERT_EQ(device.Initialize(handle), SYN_OK);
    // The range is known at once; packets only come from the message loop.
    EXPECT_EQ(device.ranges(), (std::vector<std::int32_t>{100, 900, -50, 50}));
    EXPECT_TRUE(device.seen.empty());
    EXPECT_FALSE(device.readBuffer());

    ASSERT_TRUE(pumpUntil([&] { return device.seen.size() == 4; }));
    pumpFor(50ms);
    ASSERT_EQ(device.seen.size(), 4u);   // the session ends after its last packet
    for (long i = 0; i < 4; ++i) {
        EXPECT_EQ(device.seen[i].sequence, i);
        EXPECT_EQ(device.seen[i].thread, GetCurrentThreadId());
    }
    // x y width stickX stickY, then finger motion left right middle, per packet.
    const auto fields = [](const Seen& s) {
        return std::vector<std::int32_t>{s.x, s.y, s.width, s.stickX, s.stickY};
    };
    const auto flags = [](const Seen& s) {
        return std::string{s.finger ? 'F' : '-', s.motion ? 'm' : '-', s.left ? 'L' : '-', s.right ? 'R' : '-',
                           s.middle ? 'M' : '-'};
    };
    EXPECT_EQ(fields(device.seen[0]), (std::vector<std::int32_t>{100, -50, 1, 0, 0}));
    EXPECT_EQ(fields(device.seen[1]), (std::vector<std::int32_t>{500, 7, 15, 0, 0}));
    EXPECT_EQ(fields(device.seen[2]), (std::vector<std::int32_t>{0, 0, 0, -3, 4}));
    EXPECT_EQ(flags(device.seen[0]) + flags(device.seen[1]) + flags(device.seen[2]) + flags(device.seen[3]),
              "F----" "FmL--" "---RM" "FmLRM");
}

TEST_F(ReplayTest, RecordedPaceHoldsBackPacketsThatAreNotDue)
{
    // The second packet is a minute away: a bounded pump sees only the first, at any load.
    const long handle = add(write("paced.session", pad("20 1 1 1 1 0 0 0 -\n60000 1 2 2 2 0 0 0 -\n")), "1");
    RecordingDevice device(handle);
    ASSERT_EQ(device.Initialize(handle), SYN_OK);
    EXPECT_TRUE(pumpUntil([&] { return !device.seen.empty(); }));
    pumpFor(300ms);
    ASSERT_EQ(device.seen.size(), 1u);
    EXPECT_EQ(device.seen[0].x, 1);

    // Sped up a thousand times, the same minute passes within the bound.
    const long fast = add(m_folder / "paced.session", "1000");
    RecordingDevice quick(fast);
    ASSERT_EQ(quick.Initialize(fast), SYN_OK);
    EXPECT_TRUE(pumpUntil([&] { return quick.seen.size() == 2; }));
}

TEST_F(ReplayTest, UnpacedLoopingReplayLetsTimersAndPaintsIn)
{
    const long handle = add(write("loop.session", pad("0 1 1 1 1 0 0 0 -\n0 1 2 2 2 1 0 0 -\n")), "max", true);
    RecordingDevice device(handle);
    ASSERT_EQ(device.Initialize(handle), SYN_OK);
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    bool ticked = false;
    static bool* s_ticked = nullptr;
    s_ticked = &ticked;
    SetTimer(window, 7, 30, [](HWND, UINT, UINT_PTR, DWORD) { *s_ticked = true; });
    EXPECT_TRUE(pumpUntil([&] { return ticked && device.seen.size() > 100; }));
    KillTimer(window, 7);
    DestroyWindow(window);
    // Laps repeat the session and the sequence keeps counting.
    EXPECT_EQ(device.seen[2].x, 1);
    EXPECT_EQ(device.seen[3].x, 2);
    EXPECT_EQ(device.seen[100].sequence, 100);
}

TEST_F(ReplayTest, ReaquireReopensTheSessionAndCarriesOn)
{
    const std::filesystem::path file = write("resume.session", pad("0 1 1 1 1 0 0 0 -\n0 1 2 2 2 0 0 0 -\n"
                                                                   "60000 1 3 3 3 0 0 0 -\n"));
    const long handle = add(file, "1");
    RecordingDevice device(handle);
    ASSERT_EQ(device.Initialize(handle), SYN_OK);
    ASSERT_TRUE(pumpUntil([&] { return device.seen.size() == 2; }));

    // After the sleep the driver reports another range and the next packet comes sooner.
    write("resume.session", pad("0 1 1 1 1 0 0 0 -\n0 1 2 2 2 0 0 0 -\n10 1 33 3 3 0 0 0 -\n",
                                "x-range 0 10\ny-range 0 20\n"));
    EXPECT_TRUE(device.reaquireDevice());
    EXPECT_EQ(device.ranges(), (std::vector<std::int32_t>{0, 10, 0, 20}));
    ASSERT_TRUE(pumpUntil([&] { return device.seen.size() == 3; }));
    EXPECT_EQ(device.seen[2].x, 33);
    EXPECT_EQ(device.seen[2].sequence, 2);

    // A device whose file no longer reads cannot be re-acquired, and then stays silent. (The file
    // is open while it is replayed: it can be rewritten, not removed.)
    const long gone = add(write("gone.session", pad("0 1 1 1 1 0 0 0 -\n0 1 2 2 2 0 0 0 -\n")), "1");
    RecordingDevice lost(gone);
    ASSERT_EQ(lost.Initialize(gone), SYN_OK);
    write("gone.session", "");
    EXPECT_FALSE(lost.reaquireDevice());
    pumpFor(100ms);
    EXPECT_TRUE(lost.seen.empty());
    EXPECT_FALSE(lost.reaquireDevice());

    // A lost device starts again on re-acquire once its session is back.
    write("gone.session", pad("0 1 5 5 5 0 0 0 -\n"));
    EXPECT_TRUE(lost.reaquireDevice());
    EXPECT_TRUE(pumpUntil([&] { return lost.seen.size() == 1; }));
}

TEST_F(ReplayTest, ReceiverMayDestroyTheDeviceOrReopenItInsideANotification)
{
    const long handle = add(write("many.session", pad("0 1 1 1 1 0 0 0 -\n")), "max", true);
    auto doomed = std::make_unique<RecordingDevice>(handle);
    ASSERT_EQ(doomed->Initialize(handle), SYN_OK);
    bool destroyed = false;
    doomed->onPacket = [&] {
        destroyed = true;
        doomed.reset();
    };
    EXPECT_TRUE(pumpUntil([&] { return destroyed; }));
    pumpFor(50ms);   // queued deliveries for the gone device must be dropped

    RecordingDevice reopening(handle);
    ASSERT_EQ(reopening.Initialize(handle), SYN_OK);
    reopening.onPacket = [&] { EXPECT_TRUE(reopening.reaquireDevice()); };
    EXPECT_TRUE(pumpUntil([&] { return reopening.seen.size() >= 20; }));
    for (std::size_t i = 0; i < reopening.seen.size(); ++i) {
        EXPECT_EQ(reopening.seen[i].sequence, static_cast<long>(i));   // never delivered twice
    }
}
