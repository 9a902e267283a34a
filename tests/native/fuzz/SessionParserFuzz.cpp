// Recorded sessions: parsing gives a session or a one-line SessionError "FILE:LINE: what is wrong;
// what is allowed". An accepted session has ranges that do not run backwards and packets whose
// times never decrease.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Promise.h"
#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const padkit::Session session =
            padkit::SessionParser::parse(std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
        Promise::hold(session.xLo <= session.xHi && session.yLo <= session.yHi, "ranges do not run backwards");
        for (std::size_t i = 1; i < session.packets.size(); ++i) {
            Promise::hold(session.packets[i].timeMs >= session.packets[i - 1].timeMs, "times never decrease");
        }
    } catch (const padkit::SessionError& error) {
        Promise::refusal(error, "fuzz:");
        Promise::hold(std::string_view(error.what()).find("; ") != std::string_view::npos,
                      "a refusal says what is allowed");
    }
    return 0;
}
