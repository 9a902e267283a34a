#pragma once
// "--convert IN OUT": a HID recording (its first touchpad, else its first mouse, as a pointing
// stick) or a session file, written as a session file as a replay of it would record it
// (SessionCopy), without a dialog; answers what it wrote.
#include <string>

#include "harn5/FileConverter.h"

namespace padkit {

class SessionConverter : public harn5::FileConverter {
public:
    // Throws HarnException naming the file and line of a fault; nothing is left at out then.
    std::string convert(const std::string& in, const std::string& out) override;
};

}  // namespace padkit
