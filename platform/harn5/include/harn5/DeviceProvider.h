#pragma once
// Makes the devices of one kind named on the command line as "--device KIND:SOURCE,PROP=VALUE",
// for a library that knows that kind (touch devices replayed from files, for instance), so that
// the host itself needs to know nothing about them.
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "harn5/DiagDevice.h"

namespace harn5 {

class DeviceProvider {
public:
    struct Request {
        std::string kind;                                             // before the ':'
        std::string source;                                           // after it, up to the first ','
        std::vector<std::pair<std::string, std::string>> settings;   // PROPERTY=VALUE in order, trimmed
        std::size_t index = 0;                                        // numbers an unnamed device
        std::string record;                                           // --record FILE, or empty
    };

    virtual ~DeviceProvider() = default;
    // The device asked for; throws HarnException saying what is wrong and what would be valid.
    // A "name" setting is the host's: it never reaches the provider.
    virtual DiagDevice makeDevice(const Request& request) = 0;
};

// Providers by kind.
using DeviceProviders = std::map<std::string, std::unique_ptr<DeviceProvider>, std::less<>>;

}  // namespace harn5
