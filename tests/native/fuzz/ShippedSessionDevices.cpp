#include "ShippedSessionDevices.h"

#include <filesystem>
#include <memory>

#include "harn5/HarnException.h"
#include "harn5/Text.h"
#include "padkit/SessionDeviceProvider.h"

namespace {

class ShippedSessionProvider : public harn5::DeviceProvider {
public:
    ShippedSessionProvider(SynDeviceType type, padkit::DeviceRegistry& registry)
        : m_provider(type, registry)
    {
    }

    harn5::DiagDevice makeDevice(const Request& request) override
    {
        if (request.source.find('/') != std::string::npos) {
            throw harn5::HarnException(harn5::HarnString("--device " + request.source +
                                                         ": fuzzing reads only the shipped sessions"));
        }
        Request shipped = request;
        if (!request.source.empty()) {
            shipped.source = harn5::Text::fromPath(std::filesystem::path(KSTR_SESSION_FOLDER) /
                                                   harn5::Text::toPath(request.source));
        }
        return m_provider.makeDevice(shipped);
    }

private:
    padkit::SessionDeviceProvider m_provider;
};

}  // namespace

ShippedSessionDevices::ShippedSessionDevices()
{
    m_providers.emplace("touchpad", std::make_unique<ShippedSessionProvider>(SynDeviceTouchPad, m_registry));
    m_providers.emplace("trackpoint",
                        std::make_unique<ShippedSessionProvider>(SynDeviceTrackpoint, m_registry));
}

const harn5::DeviceProviders& ShippedSessionDevices::providers() const
{
    return m_providers;
}
