#pragma once
// The process's touch devices: a handle (the device's SP_Handle) names a recorded session to
// replay, or a live device of the machine. The host registers devices from its command line and
// from Raw Input; the wrapper finds them by handle.
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "padkit/ReplayClock.h"
#include "padkit/SynDeviceType.h"

namespace padkit {

class DeviceRegistry {
public:
    struct Entry {
        SynDeviceType type = SynDeviceUnknown;
        std::filesystem::path session;   // opened afresh by every Initialize and re-acquire
        std::optional<unsigned> recordedDevice;   // of a HID recording of several devices: which
        ReplayClock clock;
        bool loop = false;
        std::string liveDevice;           // a live device's interface path; empty: a session
        std::filesystem::path record;     // where the device's packets are recorded; empty: nowhere
    };

    DeviceRegistry() = default;
    DeviceRegistry(const DeviceRegistry&) = delete;
    DeviceRegistry& operator=(const DeviceRegistry&) = delete;

    static DeviceRegistry& process();

    // A new handle, never 0 or negative and never given out before in this registry.
    long add(const Entry& entry);
    void remove(long handle);
    std::optional<Entry> find(long handle) const;
    // Where the next recording asked for at base goes: base itself the first time, then base
    // with -2, -3... before its extension, so that no run overwrites another's recording.
    std::filesystem::path claimRecording(const std::filesystem::path& base);

private:
    mutable std::mutex m_mutex;
    std::map<long, Entry> m_entries;
    long m_lastHandle = 0;
    std::map<std::filesystem::path, int> m_recordings;   // claims per base path
};

}  // namespace padkit
