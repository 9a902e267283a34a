#pragma once
// What the process-wide host takes from the system it runs on: where the language files are,
// the user's language, the system's own devices, unbuffered console streams.
#include <cstdint>

namespace harn5 {

class Host;

class ProcessEnvironment {
public:
    static Host& configure(Host& host);
    // Whether a window has this handle now; a build without windows takes any handle.
    static bool windowExists(std::uintptr_t handle);
};

}  // namespace harn5
