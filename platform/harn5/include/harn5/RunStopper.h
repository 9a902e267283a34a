#pragma once
// Held by the host while a test runs: on Windows, a timer on the test's thread that closes the
// test's dialog the way its Cancel does once a stop request goes unanswered (the test does not
// poll for stops itself). The portable build has no windows to close.
#include <cstdint>

namespace harn5 {

class Host;

class RunStopper {
public:
    explicit RunStopper(const Host& host);
    ~RunStopper();
    RunStopper(const RunStopper&) = delete;
    RunStopper& operator=(const RunStopper&) = delete;

private:
    std::uintptr_t m_timer = 0;
};

}  // namespace harn5
