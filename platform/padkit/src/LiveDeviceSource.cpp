#include "padkit/LiveDeviceSource.h"

#include <windows.h>

#include <memory>
#include <string>

#include "padkit/DeviceRegistry.h"
#include "padkit/LiveDeviceCatalog.h"
#include "harn5/Text.h"
#include "padkit/StickDeviceProvider.h"
#include "rawkit/RawInputDevices.h"

namespace padkit {

LiveDeviceSource::LiveDeviceSource(const harn5::Host& host) : m_host(host) {}

void LiveDeviceSource::registerWith(harn5::Host& host)
{
    LiveDeviceCatalog::declareProperties(host);
    host.addDeviceSource(std::make_unique<LiveDeviceSource>(host));
    host.addDeviceProvider("stick", std::make_unique<StickDeviceProvider>(
                                        [] { return rawkit::RawInputDevices::enumerate(knownSticks()); },
                                        DeviceRegistry::process()));
}

rawkit::KnownSticks LiveDeviceSource::knownSticks()
{
    std::wstring module(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, module.data(), static_cast<DWORD>(module.size()))) == module.size()) {
        module.resize(module.size() * 2);
    }
    module.resize(length);
    return rawkit::KnownSticks::load(std::filesystem::path(module).parent_path() / L"pointing-sticks.txt");
}

void LiveDeviceSource::enumerate(std::vector<harn5::DiagDevice>& devices)
{
    LiveDeviceCatalog catalog(DeviceRegistry::process(), harn5::Text::toPath(m_host.recordPath()));
    for (harn5::DiagDevice& device : catalog.describe(rawkit::RawInputDevices::enumerate(knownSticks()))) {
        devices.push_back(std::move(device));
    }
}

}  // namespace padkit
