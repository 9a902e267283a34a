#include "padkit/LiveDeviceSource.h"

#include <filesystem>
#include <memory>

#include "padkit/DeviceRegistry.h"
#include "padkit/LiveDeviceCatalog.h"
#include "harn5/ProcessEnvironment.h"
#include "harn5/Text.h"
#include "harn5/TextFile.h"
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
    const std::filesystem::path file = harn5::ProcessEnvironment::executableFolder() / L"pointing-sticks.txt";
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        return {};   // the user can still name a stick
    }
    return rawkit::KnownSticks::parse(harn5::TextFile::read(file, "list of pointing sticks"));
}

void LiveDeviceSource::enumerate(std::vector<harn5::DiagDevice>& devices)
{
    LiveDeviceCatalog catalog(DeviceRegistry::process(), harn5::Text::toPath(m_host.recordPath()));
    for (harn5::DiagDevice& device : catalog.describe(rawkit::RawInputDevices::enumerate(knownSticks()))) {
        devices.push_back(std::move(device));
    }
}

}  // namespace padkit
