#pragma once
// What a fuzz target's parser promises. A broken promise ends the run as a crash would, so that
// libFuzzer keeps the input and the replay test fails, naming the promise.
#include <exception>
#include <string_view>

#include "harn5/HarnException.h"

class Promise {
public:
    static void hold(bool kept, const char* promise);
    // A refusal is one line of visible text beginning with prefix (the source it names, say).
    static void refusal(const std::exception& error, std::string_view prefix);
    // ... and shows the whole of its message.
    static void refusal(const harn5::HarnException& error, std::string_view prefix);
};
