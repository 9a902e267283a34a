#pragma once
// Runs the touchpad quality test inside the real host on sessions written from frames, and drives
// its dialog from a thread timer inside its modal loop, with the messages a user's clicks send.
#include <windows.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "harn5/RunRecord.h"
#include "rawkit/TouchFrame.h"

namespace tqtest {

// One step of a scenario: called on every tick with the dialog until it answers true.
using Step = std::function<bool(HWND dialog)>;

struct Outcome {
    int status = -1;                  // what DiagModule::start returned
    std::optional<harn5::RunRecord> run;   // the last run of the report
    std::size_t stepsDone = 0;
    bool timedOut = false;

    std::vector<std::string> events() const;
    double figure(const std::string& name) const;   // NaN when absent or null
};

// A version 2 session of these frames on a pad of that layout, replayed unpaced (or at a speed),
// as the --device option of a touchpad; version 1 writes the header of a version 1 session alone.
std::string sessionDevice(const rawkit::TouchLayout& layout, const std::vector<rawkit::TouchFrame>& frames,
                          double speed = 0.0, int version = 2);

// Runs the host with these options and the English texts, a report in a folder of its own
// (reportFile), playing the steps against the dialog. Without steps the dialog is cancelled.
Outcome runHost(const std::vector<std::string>& options, const std::vector<Step>& steps);
std::filesystem::path reportFile();

// Steps and helpers.
Step waitFor(std::function<bool(HWND dialog)> condition);
Step act(std::function<void(HWND dialog)> action);
std::wstring itemText(HWND dialog, int id);
bool itemEnabled(HWND dialog, int id);
// A click of a button as the button sends it to the dialog.
void click(HWND dialog, int id);

}  // namespace tqtest
