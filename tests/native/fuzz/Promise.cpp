#include "Promise.h"

#include <cstdio>
#include <cstdlib>

void Promise::hold(bool kept, const char* promise)
{
    if (!kept) {
        std::fprintf(stderr, "broken promise: %s\n", promise);
        std::abort();
    }
}

void Promise::refusal(const std::exception& error, std::string_view prefix)
{
    const std::string_view message = error.what();
    hold(message.size() > prefix.size() && message.substr(0, prefix.size()) == prefix,
         "a refusal names its source and says what is wrong");
    for (const char c : message) {
        hold(static_cast<unsigned char>(c) >= 0x20 || c == '\t', "a refusal is one line of visible text");
    }
}

void Promise::refusal(const harn5::HarnException& error, std::string_view prefix)
{
    refusal(static_cast<const std::exception&>(error), prefix);
    hold(error.toString().utf8() == error.what(), "a refusal shows its whole message");
}
