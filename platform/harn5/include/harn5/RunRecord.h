#pragma once
// One run of a test on one device (or the attempt, when no device fitted).
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "harn5/EventRecord.h"
#include "harn5/TestResult.h"

namespace harn5 {

struct RunRecord {
    // A figure a test measured, such as a report rate in Hz.
    struct Measurement {
        std::string name;
        double value = 0.0;
        std::string unit;
    };
    struct Device {
        std::string name;
        std::string capabilities;
        std::vector<std::pair<std::string, std::string>> properties;
    };

    std::string test;
    std::string displayName;
    std::optional<Device> device;
    bool finished = false;
    std::optional<TestResult> verdict;
    std::string started;
    std::string ended;
    std::vector<EventRecord> events;
    std::vector<Measurement> measurements;     // in the order measured
    std::string reason;                        // why it could not run; empty when it ran
    std::string exception;                     // what ended it abnormally; empty otherwise
};

}  // namespace harn5
