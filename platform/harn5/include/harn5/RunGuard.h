#pragma once
// Installed by Host::start for its duration: turns Ctrl+C / console close into a stop request
// and, on Windows, a structured exception escaping a test into a reported, orderly exit.
namespace harn5 {

class Host;

class RunGuard {
public:
    explicit RunGuard(Host& host);
    ~RunGuard();
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;

    static bool interrupted();                 // Ctrl+C or console close seen
    static void interrupt();                   // what the handlers do; tests call it too
    static void clearInterrupt();              // a new run starts without the last one's request
};

}  // namespace harn5
