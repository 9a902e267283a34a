#pragma once
// Where the quality dialog's reports come from: its device's raw input, or a replay. A source
// delivers on the dialog's thread, through its message loop, for as long as it exists.
#include <functional>
#include <memory>

#include "pointerq/TimedReport.h"

class ReportSource {
public:
    using Sink = std::function<void(const pointerq::TimedReport& report)>;
    // Starts a source that hands each report to the sink; null when it could not start.
    using Factory = std::function<std::unique_ptr<ReportSource>(Sink sink)>;

    virtual ~ReportSource() = default;
};
