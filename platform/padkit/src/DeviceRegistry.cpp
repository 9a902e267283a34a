#include "padkit/DeviceRegistry.h"

#include <string>

namespace padkit {

DeviceRegistry& DeviceRegistry::process()
{
    static DeviceRegistry registry;
    return registry;
}

long DeviceRegistry::add(const Entry& entry)
{
    const std::lock_guard lock(m_mutex);
    m_entries.emplace(++m_lastHandle, entry);
    return m_lastHandle;
}

void DeviceRegistry::remove(long handle)
{
    const std::lock_guard lock(m_mutex);
    m_entries.erase(handle);
}

std::optional<DeviceRegistry::Entry> DeviceRegistry::find(long handle) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(handle);
    if (found == m_entries.end()) {
        return std::nullopt;
    }
    return found->second;
}

std::filesystem::path DeviceRegistry::claimRecording(const std::filesystem::path& base)
{
    const std::lock_guard lock(m_mutex);
    const int claim = ++m_recordings[base];
    if (claim == 1) {
        return base;
    }
    std::filesystem::path numbered = base;
    numbered.replace_filename(base.stem().native() + std::filesystem::path("-" + std::to_string(claim)).native() +
                              base.extension().native());
    return numbered;
}

}  // namespace padkit
