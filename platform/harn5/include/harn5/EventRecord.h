#pragma once
// One reported event as the report keeps it.
#include <string>

namespace harn5 {

struct EventRecord {
    std::string name;
    std::string severity;                      // "error", "warning", "informative"
    std::string sourceFile;
    int line = 0;
    std::string time;                          // ISO 8601, UTC
    std::string detail;                        // what was found, where the test says; empty: nothing
};

}  // namespace harn5
