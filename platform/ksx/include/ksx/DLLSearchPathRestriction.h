#pragma once
// Narrows where the process looks for DLLs that are loaded by name.

namespace ksx {

class DLLSearchPathRestriction {
public:
    enum Config {
        UNRESTRICTED = 0,           // the system's standard order, current directory included
        APPLICATION_DIRECTORY = 1,  // the executable's folder and System32
        SYSTEM_DIRECTORY_ONLY = 2   // System32 only
    };

    // Applies the restriction to the whole process; throws ksx::Exception with the Win32 error
    // when the system refuses. Does nothing off Windows.
    static void configure(Config config);
};

}  // namespace ksx
