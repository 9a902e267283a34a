#pragma once
// A recorded session of one touch device: what the device is, then its packets in time order.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "padkit/Packet.h"
#include "padkit/SynDeviceType.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

struct Session {
    SynDeviceType type = SynDeviceUnknown;
    std::int32_t xLo = 0;
    std::int32_t xHi = 0;
    std::int32_t yLo = 0;
    std::int32_t yHi = 0;
    std::optional<std::string> pnpId;              // absent: the device reports no PnP id
    std::optional<std::string> blacklistVersion;   // present: the driver is blacklisted
    int version = 1;                               // 2: a touchpad's frames, with every contact
    std::optional<double> widthMm;                 // the pad's physical size; absent: unknown
    std::optional<double> heightMm;
    std::optional<rawkit::ValueRange> widthRange;  // of a contact's width; absent: not reported
    std::optional<std::string> name;               // the device as its source names it
    std::vector<rawkit::TouchFrame> frames;        // version 2 touchpads: every scan, times never decrease
    std::vector<Packet> packets;                   // times never decrease; of a version 2 touchpad, one a frame
};

}  // namespace padkit
