#pragma once
// Runs one of the module's tests through the real host, with the English texts and only the
// devices given, and calls a function from inside the test's modal loop once its dialog shows;
// the dialog is cancelled when the function returns. The host's own output is kept back.
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class HostRun {
public:
    using Inside = std::function<void(HWND dialog)>;

    // options: --test, --device and --param as on the module's command line. The machine's own
    // devices are left out unless asked for.
    HostRun(std::vector<std::string> options, Inside inside, bool systemDevices = false);
    HostRun(const HostRun&) = delete;
    HostRun& operator=(const HostRun&) = delete;

    // Runs the test; false when its dialog never showed (the host's output then goes to stderr).
    bool run();

private:
    // A thread timer: waits for the dialog, then runs the function inside its modal loop.
    static void CALLBACK onTick(HWND, UINT, UINT_PTR id, DWORD);
    // The visible dialog of this thread, or null.
    static HWND visibleDialog();

    std::vector<std::string> m_arguments;
    Inside m_inside;
    bool m_dialogSeen;

    static HostRun* s_running;   // the run whose timer is waiting; one at a time
};
