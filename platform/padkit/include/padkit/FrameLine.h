#pragma once
// One frame line of a version 2 session: TIME BUTTONS CONTACT... (FORMAT.md).
#include <string>
#include <string_view>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace padkit {

class FrameLine {
public:
    // The frame of the line's fields (TIME first); on a fault, false with what is wrong and what
    // is allowed in error.
    static bool parse(const std::vector<std::string_view>& fields, rawkit::TouchFrame& frame, std::string& error);
    static std::string format(const rawkit::TouchFrame& frame);
};

}  // namespace padkit
