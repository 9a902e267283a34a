#pragma once
// Parses the host's options (argv[0], the module file name, is not among them).
#include <string>
#include <vector>

#include "harn5/DiagDevice.h"
#include "harn5/Options.h"

namespace harn5 {

class CommandLine {
public:
    // Throws HarnException naming the bad option or value and what would be valid.
    static Options parse(const std::vector<std::string>& arguments);
    // "Caps+Caps,PROPERTY=VALUE,...,name=Display name"; index numbers unnamed devices.
    static DiagDevice parseDevice(const std::string& description, std::size_t index);
    static std::string help(const std::string& moduleName);
};

}  // namespace harn5
