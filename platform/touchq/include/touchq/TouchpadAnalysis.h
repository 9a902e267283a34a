#pragma once
// Every quality check of one touchpad over one run, fed its complete frames: which checks the
// settings ask for, whether each has run, what was found, and the figures for the report. A
// check not asked for is measured and shown, never judged.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rawkit/ContactTracker.h"
#include "rawkit/TouchFrame.h"
#include "touchq/CoverageMap.h"
#include "touchq/HandsOff.h"
#include "touchq/MostContacts.h"
#include "touchq/PadClicks.h"
#include "touchq/PadScale.h"
#include "touchq/ReportRate.h"
#include "touchq/Resolution.h"
#include "touchq/RestingFinger.h"

namespace touchq {

class TouchpadAnalysis {
public:
    enum Check { Coverage, Contacts, Jitter, Rate, Idle, Buttons, Resolve, CheckCount };

    struct Settings {
        unsigned minContacts = 3;
        double maxJitterMicrons = 500.0;
        bool judgeRate = true;
        std::int64_t idleUs = 10000000;
        bool required[CheckCount] = {true, true, true, true, true, true, true};
    };
    struct Finding {
        std::string event;    // the host event that reports it
        std::string detail;   // what was found, for the report, the log and the dialog
    };
    struct Measurement {
        std::string name;
        double value;         // NaN when not known
        std::string unit;
    };

    static constexpr std::uint64_t kIntervalsForRate = 100;
    static constexpr std::uint32_t kDefaultMinContacts = 3;
    static constexpr std::uint32_t kDefaultMaxJitterMicrons = 500;
    static constexpr std::uint32_t kDefaultIdleSeconds = 10;
    // The certification's bounds of a precision touchpad's report rate.
    static constexpr double kMinRateOneHz = 125.0;
    static constexpr double kMinRateSeveralHz = 100.0;
    static constexpr double kMaxRateHz = 250.0;

    // Settings from the test's parameters, where 0 (unset) takes the default and an empty list
    // of checks asks for all; none, with what is wrong in error, for a check not known.
    static std::optional<Settings> settingsFrom(std::uint32_t minContacts, std::uint32_t maxJitterMicrons,
                                                bool judgeRate, std::uint32_t idleSeconds,
                                                const std::vector<std::string>& checks, std::string& error);
    // "coverage", "contacts", "jitter", "rate", "idle", "buttons", "resolution".
    static const char* name(Check check);
    static bool isCheckName(std::string_view name);

    TouchpadAnalysis(const rawkit::TouchLayout& layout, const Settings& settings);

    void add(const rawkit::TouchFrame& frame);
    void startIdle(std::int64_t nowUs);

    bool ran(Check check, std::int64_t nowUs) const;
    // Every check the settings ask for has run.
    bool complete(std::int64_t nowUs) const;
    // What the checks asked for found wrong: while any is there, the pad cannot pass.
    std::vector<Finding> findings(std::int64_t nowUs) const;
    // At a Fail: the findings, and what the pad never managed of the checks asked for (cells
    // never covered, too few fingers at once).
    std::vector<Finding> verdictFindings(std::int64_t nowUs) const;
    std::vector<Measurement> measurements(unsigned long malformedFrames) const;

    const Settings& settings() const { return m_settings; }
    const rawkit::TouchLayout& layout() const { return m_layout; }
    const rawkit::ContactTracker& tracker() const { return m_tracker; }
    const CoverageMap& coverage() const { return m_coverage; }
    const MostContacts& contacts() const { return m_contacts; }
    const RestingFinger& rest() const { return m_rest; }
    const ReportRate& rate() const { return m_rate; }
    const HandsOff& idle() const { return m_idle; }
    const PadClicks& clicks() const { return m_clicks; }
    const Resolution& resolution() const { return m_resolution; }

private:
    std::optional<Finding> rateFinding() const;
    Finding deadZone() const;
    Finding ghosts() const;

    rawkit::TouchLayout m_layout;
    Settings m_settings;
    PadScale m_scale;
    rawkit::ContactTracker m_tracker;
    CoverageMap m_coverage;
    MostContacts m_contacts;
    RestingFinger m_rest;
    ReportRate m_rate;
    HandsOff m_idle;
    PadClicks m_clicks;
    Resolution m_resolution;
};

}  // namespace touchq
