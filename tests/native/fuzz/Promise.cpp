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
    hold(message.find('\n') == std::string_view::npos, "a refusal is one line");
}
