#pragma once
// Reads the recorded-session text format (FORMAT.md). Never crashes on any input: anything
// that is not a well-formed session throws SessionError naming the line.
#include <filesystem>
#include <string>
#include <string_view>

#include "padkit/Session.h"

namespace padkit {

class SessionParser {
public:
    // fileName only labels the messages.
    static Session parse(std::string_view text, const std::string& fileName);
    // Reads and parses the file; an unreadable file is a SessionError with Reason::Unreadable.
    static Session load(const std::filesystem::path& file);
};

}  // namespace padkit
