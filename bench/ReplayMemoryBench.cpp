// Memory while a replay runs: a HID recording of 10^5 and then of 10^6 reports (a hybrid pad, two
// fingers moving), and the session file --convert makes of the longer one, each replayed at
// speed=max through the touch-device wrapper to its last packet. A replay reads its file as it
// goes, so the process's memory after the long replay should be what it was after the short one
// (aim: flat). For scale, the long session read whole, as replays did before they streamed.
#include <windows.h>
#include <psapi.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "Stopwatch.h"
#include "padkit/DeviceRegistry.h"
#include "padkit/SYNTestDevice.h"
#include "padkit/SessionConverter.h"
#include "padkit/SessionParser.h"

namespace {

constexpr std::size_t kFlatKb = 1024;   // what counts as no growth: allocator and cache noise

// The working set, which Wine keeps as Windows does (its private-bytes counter stays at 0).
std::size_t workingSetKb()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.WorkingSetSize / 1024;
}

// The Elan pad's descriptor (tests/data/hid-descriptors) and a recording of `reports` of its
// reports: two fingers, each scan in two reports (the count 2, then 0), 4 ms apart.
std::filesystem::path writeRecording(long reports)
{
    std::ifstream descriptor(std::string(KSTR_SOURCE_DIR) + "/tests/data/hid-descriptors/elan_04f3_300b.rdesc");
    std::string bytes;
    std::string hex;
    int count = 0;
    while (descriptor >> hex) {
        bytes += " " + hex;
        ++count;
    }
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("replay-memory-" + std::to_string(reports) + ".hid");
    std::ofstream out(file, std::ios::binary);
    out << "# ELAN0412:00 04F3:300B Touchpad\nR: " << count << bytes << "\nN: ELAN0412:00 04F3:300B Touchpad\n"
        << "I: 18 04f3 300b\n";
    char line[128];
    for (long n = 0; n < reports; ++n) {
        const long long us = n * 4000LL;
        const int finger = static_cast<int>(n % 2);
        const int x = 300 + 1000 * finger + static_cast<int>((n / 2) % 1500);
        const unsigned scan = static_cast<unsigned>((us / 8000) * 80) & 0xFFFF;
        std::snprintf(line, sizeof line, "E: %06lld.%06lld 10 04 %02x %02x %02x e8 03 %02x %02x %02x 00\n",
                      us / 1000000, us % 1000000, 0x03 | ((finger + 1) << 2), x & 0xFF, x >> 8, scan & 0xFF,
                      scan >> 8, finger == 0 ? 2 : 0);
        out << line;
    }
    return file;
}

class CountingDevice : public SYNTestDevice {
public:
    using SYNTestDevice::SYNTestDevice;
    long OnSynDevicePacket(long sequence) override
    {
        ++packets;
        return SYNTestDevice::OnSynDevicePacket(sequence);
    }
    void OnSynDeviceRemoved() override { stopped = true; }
    long packets = 0;
    bool stopped = false;
};

// Replays the file at speed=max to its last packet; the packets a second, and the memory then.
bool replay(const std::filesystem::path& file, long expected, double& perSecond, std::size_t& memoryKb)
{
    padkit::DeviceRegistry::Entry entry;
    entry.type = SynDeviceTouchPad;
    entry.session = file;
    entry.clock = padkit::ReplayClock::unpaced();
    const long handle = padkit::DeviceRegistry::process().add(entry);
    CountingDevice device(handle);
    if (device.Initialize(handle) != SYN_OK) {
        std::printf("%s cannot be replayed\n", file.string().c_str());
        return false;
    }
    const Stopwatch watch;
    MSG msg;
    while (device.packets < expected && !device.stopped && GetMessageW(&msg, nullptr, 0, 0) > 0) {
        DispatchMessageW(&msg);
    }
    perSecond = device.packets / (watch.elapsedMicroseconds() / 1e6);
    memoryKb = workingSetKb();
    padkit::DeviceRegistry::process().remove(handle);
    return device.packets == expected;
}

void report(const char* what, std::size_t shortKb, std::size_t longKb, double shortRate, double longRate)
{
    const long long grewKb = static_cast<long long>(longKb) - static_cast<long long>(shortKb);
    std::printf("%s: working set after 1e5 reports %zu KB, after 1e6 %zu KB: %+lld KB (%s); %.0f and %.0f packets/s\n",
                what, shortKb, longKb, grewKb, grewKb <= static_cast<long long>(kFlatKb) ? "flat" : "GROWS", shortRate,
                longRate);
}

}  // namespace

int wmain()
{
    const std::filesystem::path shortFile = writeRecording(100000);
    const std::filesystem::path longFile = writeRecording(1000000);
    const std::filesystem::path session = std::filesystem::temp_directory_path() / "replay-memory.session";
    padkit::SessionConverter().convert(longFile.string(), session.string());
    const std::filesystem::path shortSession = std::filesystem::temp_directory_path() / "replay-memory-short.session";
    padkit::SessionConverter().convert(shortFile.string(), shortSession.string());

    double warm = 0;
    std::size_t ignored = 0;
    replay(shortFile, 50000, warm, ignored);   // the first replay loads what every replay needs
    double rates[4] = {};
    std::size_t memory[4] = {};
    const bool whole = replay(shortFile, 50000, rates[0], memory[0]) && replay(longFile, 500000, rates[1], memory[1]) &&
                       replay(shortSession, 50000, rates[2], memory[2]) && replay(session, 500000, rates[3], memory[3]);
    if (!whole) {
        std::printf("a replay did not reach its last packet\n");
        return 1;
    }
    report("HID recording replayed at speed=max", memory[0], memory[1], rates[0], rates[1]);
    report("session file (version 2) replayed at speed=max", memory[2], memory[3], rates[2], rates[3]);

    const std::size_t before = workingSetKb();
    const padkit::Session loadedSession = padkit::SessionParser::load(session);
    const std::size_t frames = loadedSession.frames.size();
    const std::size_t loaded = workingSetKb();
    std::printf("for scale: the 1e6-report session (%.1f MB, %zu frames) read whole takes %+lld KB more\n",
                std::filesystem::file_size(session) / 1e6, frames,
                static_cast<long long>(loaded) - static_cast<long long>(before));
    for (const std::filesystem::path& file : {shortFile, longFile, session, shortSession}) {
        std::filesystem::remove(file);
    }
    return 0;
}
