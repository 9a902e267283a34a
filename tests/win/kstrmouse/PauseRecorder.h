#pragma once
// The click test's blocking pauses recorded instead of waited for, through the executable's
// import of Sleep: the step number on screen when each began, with its length. What the user does
// meanwhile can be played during each.
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "ImportOverride.h"

namespace clicktest {

class PauseRecorder {
public:
    explicit PauseRecorder(std::function<void()> during = nullptr);
    ~PauseRecorder();
    PauseRecorder(const PauseRecorder&) = delete;
    PauseRecorder& operator=(const PauseRecorder&) = delete;

    const std::vector<std::string>& pauses() const { return m_pauses; }

private:
    static void WINAPI Record(DWORD ms);

    mousetest::ImportOverride<void(WINAPI*)(DWORD)> m_import;
    std::function<void()> m_during;
    std::vector<std::string> m_pauses;
};

}  // namespace clicktest
