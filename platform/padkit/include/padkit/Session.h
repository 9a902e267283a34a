#pragma once
// A recorded session of one touch device: what the device is, then its packets in time order.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "padkit/Packet.h"
#include "padkit/SynDeviceType.h"

namespace padkit {

struct Session {
    SynDeviceType type = SynDeviceUnknown;
    std::int32_t xLo = 0;
    std::int32_t xHi = 0;
    std::int32_t yLo = 0;
    std::int32_t yHi = 0;
    std::optional<std::string> pnpId;              // absent: the device reports no PnP id
    std::optional<std::string> blacklistVersion;   // present: the driver is blacklisted
    std::vector<Packet> packets;                   // times never decrease
};

}  // namespace padkit
