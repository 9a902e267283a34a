#pragma once
// Runs the touchpad and TrackPoint tests inside the real host, on devices replayed from
// session texts, and drives their dialog from a thread timer inside its modal loop.
#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "harn5/EventRecord.h"
#include "harn5/TestResult.h"
#include "padkit/ReplayClock.h"
#include "padkit/SynDeviceType.h"

namespace syntest {

// One step of a scenario: called on every tick with the dialog until it answers true.
using Step = std::function<bool(HWND dialog)>;

struct Outcome {
    int status = -1;                              // what DiagModule::start returned
    harn5::TestResult verdict;                    // of the last run
    std::vector<harn5::EventRecord> events;       // of the last run
    std::vector<std::string> log;                 // "<logger> <priority> <text>"
    std::optional<bool> passEnabledAtInit;        // right after WM_INITDIALOG, before any packet
    std::size_t stepsDone = 0;
    bool dialogSeen = false;
    bool timedOut = false;

    bool logged(const std::string& line) const;   // a log line with exactly this body
    int eventCount(const std::string& name) const;
};

// A touch device whose session is this text, registered under a new handle.
long addDevice(const std::string& session, SynDeviceType type,
               padkit::ReplayClock clock = padkit::ReplayClock::unpaced());

// Runs the host with these options (the test, devices, parameters) and the English texts,
// playing the steps against the dialog. Without steps the dialog is left to end by itself.
// A log sink that throws ksx::Exception for the lines it picks stands in for a failing core.
Outcome runHost(const std::vector<std::string>& options, const std::vector<Step>& steps = {},
                std::function<bool(const std::string& line)> sinkThrowsOn = nullptr);

// The --device option of a touch device of that kind ("touchpad" or "trackpoint").
std::string deviceOption(const std::string& kind, const std::string& properties);

// Steps: wait until a dialog item shows this text; do something once.
Step waitForText(int id, const std::wstring& text);
Step act(std::function<void(HWND dialog)> action);

// Dialog helpers.
std::wstring itemText(HWND dialog, int id);
bool itemVisible(HWND dialog, int id);
bool itemEnabled(HWND dialog, int id);
void click(HWND dialog, int id);
// The device picture inside the dialog, or null.
HWND devicePicture(HWND dialog);
// The colour at a point of a window's client area as it is on the screen now.
COLORREF pixel(HWND window, int x, int y);
bool isBlueish(COLORREF colour);

}  // namespace syntest
