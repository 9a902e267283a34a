#pragma once
// Parses the host's options (argv[0], the module file name, is not among them).
#include <string>
#include <vector>

#include "harn5/DeviceProvider.h"
#include "harn5/DiagDevice.h"
#include "harn5/Options.h"

namespace harn5 {

class CommandLine {
public:
    // Throws HarnException naming the bad option or value and what would be valid. providers
    // are the kinds a "KIND:SOURCE" device may name; without them such devices are skipped, so
    // that the other options can be looked at before the kinds are known.
    static Options parse(const std::vector<std::string>& arguments,
                         const DeviceProviders* providers = nullptr);
    // "Caps+Caps,PROPERTY=VALUE,...,name=Display name", or "KIND:SOURCE,PROPERTY=VALUE,..." for
    // a kind among providers; index numbers unnamed devices, and those named by an empty name=;
    // record is where a live device made by a provider records its session (--record).
    static DiagDevice parseDevice(const std::string& description, std::size_t index,
                                  const DeviceProviders* providers = nullptr, const std::string& record = {});
    static std::string help(const std::string& moduleName);
};

}  // namespace harn5
