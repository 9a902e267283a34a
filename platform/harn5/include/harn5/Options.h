#pragma once
// What the command line asked the host for, after syntax checks; names are checked by the Host.
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "harn5/DiagDevice.h"

namespace harn5 {

struct Options {
    bool list = false;
    bool listDevices = false;
    bool help = false;
    std::vector<std::string> tests;                                  // in order, repeats kept
    std::vector<std::pair<std::string, std::string>> parameters;     // NAME, VALUE as given
    std::string language;                                            // code or path; empty: default
    std::string reportPath;
    std::optional<int> logLevel;
    std::vector<std::pair<std::string, int>> loggerLevels;
    std::string logFile;
    std::optional<double> stopAfterSeconds;
    std::string stopFile;
    std::vector<DiagDevice> devices;
    bool noSystemDevices = false;
    bool unattended = false;                                         // never wait for a person
    std::uintptr_t hostWindow = 0;
    std::string os = "auto";
    std::string recordPath;                                          // --record: a touch device's session
    std::optional<std::pair<std::string, std::string>> convert;      // --convert IN OUT
};

}  // namespace harn5
