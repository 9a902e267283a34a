#pragma once
// Reads the recorded-session text format (FORMAT.md) whole. Never crashes on any input: anything
// that is not a well-formed session throws SessionError naming the line. A replay reads its file
// as it goes instead (SessionReader).
#include <filesystem>
#include <fstream>
#include <istream>
#include <string>
#include <string_view>

#include "padkit/Session.h"

namespace padkit {

class SessionParser {
public:
    // fileName only labels the messages.
    static Session parse(std::string_view text, const std::string& fileName);
    static Session read(std::istream& in, const std::string& fileName);
    // Reads and parses the file; an unreadable file is a SessionError with Reason::Unreadable.
    static Session load(const std::filesystem::path& file);
    // Opens the file to be read, answering its name for messages; a SessionError with
    // Reason::Unreadable when it cannot be read.
    static std::string open(const std::filesystem::path& file, std::ifstream& in);
};

}  // namespace padkit
