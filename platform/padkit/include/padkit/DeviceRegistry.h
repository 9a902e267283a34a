#pragma once
// The process's touch devices: a handle (the device's SP_Handle) names a recorded session to
// replay. The host registers devices from its command line; the wrapper finds them by handle.
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

#include "padkit/ReplayClock.h"
#include "padkit/SynDeviceType.h"

namespace padkit {

class DeviceRegistry {
public:
    struct Entry {
        SynDeviceType type = SynDeviceUnknown;
        std::filesystem::path session;   // opened afresh by every Initialize and re-acquire
        ReplayClock clock;
        bool loop = false;
    };

    DeviceRegistry() = default;
    DeviceRegistry(const DeviceRegistry&) = delete;
    DeviceRegistry& operator=(const DeviceRegistry&) = delete;

    static DeviceRegistry& process();

    // A new handle, never 0 or negative and never given out before in this registry.
    long add(const Entry& entry);
    void remove(long handle);
    std::optional<Entry> find(long handle) const;

private:
    mutable std::mutex m_mutex;
    std::map<long, Entry> m_entries;
    long m_lastHandle = 0;
};

}  // namespace padkit
