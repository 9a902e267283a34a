#pragma once
// Win32: the machine's pointing devices, from Raw Input, as host devices (after the system
// mouse); pointing sticks among them are those whose hardware id is in pointing-sticks.txt
// beside the executable. Also gives the host the "stick" kind of --device.
#include "harn5/DeviceSource.h"
#include "harn5/Host.h"
#include "rawkit/KnownSticks.h"

namespace padkit {

class LiveDeviceSource : public harn5::DeviceSource {
public:
    explicit LiveDeviceSource(const harn5::Host& host);

    // Adds the source and the "stick" provider to host.
    static void registerWith(harn5::Host& host);
    // The known pointing sticks shipped beside the executable.
    static rawkit::KnownSticks knownSticks();

    void enumerate(std::vector<harn5::DiagDevice>& devices) override;

private:
    const harn5::Host& m_host;
};

}  // namespace padkit
