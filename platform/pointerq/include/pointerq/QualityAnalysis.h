#pragma once
// Every quality check of one pointing device over one run, fed with its reports: which checks the
// settings ask for, whether each has run, what was found, and the figures for the report.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pointerq/ButtonChatter.h"
#include "pointerq/IdleDrift.h"
#include "pointerq/PointerJumps.h"
#include "pointerq/ReportRate.h"
#include "pointerq/WheelReversal.h"

namespace pointerq {

class QualityAnalysis {
public:
    enum Check { Rate, Buttons, Wheel, Idle, CheckCount };

    struct Settings {
        std::int64_t chatterThresholdUs = 40000;
        std::int64_t idleUs = 5000000;
        std::uint32_t minRateHz = 0;   // 0: the rate is measured, not judged
        bool required[CheckCount] = {true, true, true, true};
    };
    struct Finding {
        std::string event;    // the host event that reports it
        std::string detail;   // what was found, for the log and the dialog
    };
    struct Measurement {
        std::string name;
        double value;
        std::string unit;
    };

    static constexpr std::uint64_t kIntervalsForRate = 100;
    static constexpr std::uint32_t kDefaultChatterMs = 40;
    static constexpr std::uint32_t kDefaultIdleSeconds = 5;

    // Settings from the test's parameters, where 0 (unset) takes the default and an empty list
    // of checks asks for all of them; none, with what is wrong in error, for a check not known.
    static std::optional<Settings> settingsFrom(std::uint32_t chatterMs, std::uint32_t idleSeconds,
                                                std::uint32_t minRateHz, const std::vector<std::string>& checks,
                                                std::string& error);

    explicit QualityAnalysis(const Settings& settings);

    void add(const TimedReport& report);
    void startIdle(std::int64_t nowUs);

    bool ran(Check check, std::int64_t nowUs) const;
    // Every check the settings ask for has run.
    bool complete(std::int64_t nowUs) const;
    std::vector<Finding> findings(std::int64_t nowUs) const;
    std::vector<Measurement> measurements() const;

    // "rate", "buttons", "wheel", "idle": as the settings name them.
    static const char* name(Check check);
    static bool isCheckName(std::string_view name);

    const Settings& settings() const { return m_settings; }
    const ReportRate& rate() const { return m_rate; }
    const ButtonChatter& buttons() const { return m_buttons; }
    const WheelReversal& wheel() const { return m_wheel; }
    const WheelReversal& tilt() const { return m_tilt; }
    const IdleDrift& idle() const { return m_idle; }
    const PointerJumps& jumps() const { return m_jumps; }

private:
    Settings m_settings;
    ReportRate m_rate;
    ButtonChatter m_buttons;
    WheelReversal m_wheel;
    WheelReversal m_tilt;
    IdleDrift m_idle;
    PointerJumps m_jumps;
};

}  // namespace pointerq
