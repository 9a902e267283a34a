#pragma once
// What the process-wide host takes from the system it runs on: where the language files are,
// the user's language, the system's own devices, unbuffered console streams.
#include <cstdint>
#include <filesystem>

namespace harn5 {

class Host;

class ProcessEnvironment {
public:
    static Host& configure(Host& host);
    // Whether a window has this handle now; a build without windows takes any handle.
    static bool windowExists(std::uintptr_t handle);
    // The folder of the running executable (what ships beside it); empty when unknown.
    static std::filesystem::path executableFolder();
};

}  // namespace harn5
