#pragma once
// Checks command-line texts against a parameter's type and turns them into its value.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "harn5/Parameter.h"
#include "harn5/Value.h"

namespace harn5 {

class ParameterParser {
public:
    static std::optional<bool> parseBoolean(std::string_view text);
    static std::optional<unsigned int> parseUint32(std::string_view text);   // decimal digits only
    static std::optional<int> parseInt32(std::string_view text);             // optional '-'
    // All texts given for one parameter, in order (none: the empty value); throws
    // HarnException naming the parameter.
    static Value parse(const Parameter& parameter, const std::vector<std::string>& texts);
};

}  // namespace harn5
