// The session parser must answer every input with a session or a SessionError. Built as a
// libFuzzer target with clang (KSTR_LIBFUZZER), and otherwise as a program that feeds it the
// files named on its command line, so that a corpus replays as an ordinary test.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "padkit/SessionError.h"
#include "padkit/SessionParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const padkit::Session session =
            padkit::SessionParser::parse(std::string_view(reinterpret_cast<const char*>(data), size), "fuzz");
        // What the parser promises of a session it accepts.
        if (session.xLo > session.xHi || session.yLo > session.yHi) {
            __builtin_trap();
        }
        for (std::size_t i = 1; i < session.packets.size(); ++i) {
            if (session.packets[i].timeMs < session.packets[i - 1].timeMs) {
                __builtin_trap();
            }
        }
    } catch (const padkit::SessionError& error) {
        if (std::string_view(error.what()).substr(0, 5) != "fuzz:") {
            __builtin_trap();
        }
    }
    return 0;
}

#ifndef KSTR_LIBFUZZER
int main(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        std::ifstream in(argv[i], std::ios::binary);
        if (!in) {
            std::cerr << argv[i] << ": cannot be read\n";
            return 1;
        }
        std::ostringstream content;
        content << in.rdbuf();
        const std::string text = content.str();
        // Cut-off copies too, the commonest damage: at each line end, and a byte either side.
        const auto feed = [&](std::size_t n) {
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), std::min(n, text.size()));
        };
        feed(text.size());
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
            feed(end - 1);
            feed(end);
            feed(end + 1);
        }
    }
    return 0;
}
#endif
