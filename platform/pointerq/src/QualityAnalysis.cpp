#include "pointerq/QualityAnalysis.h"

#include <cstdio>

namespace pointerq {

namespace {

constexpr std::uint16_t kWheelFlag = 0x0400;    // RI_MOUSE_WHEEL
constexpr std::uint16_t kHWheelFlag = 0x0800;   // RI_MOUSE_HWHEEL

std::string milliseconds(std::int64_t us)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f ms", static_cast<double>(us) / 1000.0);
    return text;
}

}  // namespace

QualityAnalysis::QualityAnalysis(const Settings& settings)
    : m_settings(settings), m_buttons(settings.chatterThresholdUs)
{
}

std::optional<QualityAnalysis::Settings> QualityAnalysis::settingsFrom(std::uint32_t chatterMs,
                                                                      std::uint32_t idleSeconds,
                                                                      std::uint32_t minRateHz,
                                                                      const std::vector<std::string>& checks,
                                                                      std::string& error)
{
    Settings settings;
    settings.chatterThresholdUs = 1000LL * (chatterMs == 0 ? kDefaultChatterMs : chatterMs);
    settings.idleUs = 1000000LL * (idleSeconds == 0 ? kDefaultIdleSeconds : idleSeconds);
    settings.minRateHz = minRateHz;
    if (checks.empty()) {
        return settings;
    }
    for (bool& required : settings.required) {
        required = false;
    }
    for (const std::string& given : checks) {
        bool known = false;
        for (int check = 0; check < CheckCount; ++check) {
            if (given == name(static_cast<Check>(check))) {
                settings.required[check] = known = true;
            }
        }
        if (!known) {
            error = "RequiredChecks: \"" + given + "\" is not a check; give rate, buttons, wheel or idle";
            return std::nullopt;
        }
    }
    return settings;
}

const char* QualityAnalysis::name(Check check)
{
    static const char* const names[] = {"rate", "buttons", "wheel", "idle"};
    return names[check];
}

bool QualityAnalysis::isCheckName(std::string_view given)
{
    for (int check = 0; check < CheckCount; ++check) {
        if (given == name(static_cast<Check>(check))) {
            return true;
        }
    }
    return false;
}

void QualityAnalysis::add(const TimedReport& report)
{
    m_rate.add(report);
    m_buttons.add(report);
    m_jumps.add(report);
    m_idle.add(report);
    // Wheel amounts are signed 16-bit values in the flags' report; up and right are positive.
    if ((report.mouse.buttonFlags & kWheelFlag) != 0) {
        m_wheel.add(report.timeUs, report.mouse.wheel);
    }
    if ((report.mouse.buttonFlags & kHWheelFlag) != 0) {
        m_tilt.add(report.timeUs, report.mouse.hwheel);
    }
}

void QualityAnalysis::startIdle(std::int64_t nowUs)
{
    m_idle.start(nowUs, m_settings.idleUs);
}

bool QualityAnalysis::ran(Check check, std::int64_t nowUs) const
{
    switch (check) {
    case Rate:
        return m_rate.intervals() >= kIntervalsForRate;
    case Buttons:
        return m_buttons.counts(ButtonChatter::Left).presses > 0 && m_buttons.counts(ButtonChatter::Right).presses > 0;
    case Wheel:
        return m_wheel.notchesUp() >= WheelReversal::kRun && m_wheel.notchesDown() >= WheelReversal::kRun;
    case Idle:
        return m_idle.done(nowUs);
    case CheckCount:
        break;
    }
    return false;
}

bool QualityAnalysis::complete(std::int64_t nowUs) const
{
    for (int check = 0; check < CheckCount; ++check) {
        if (m_settings.required[check] && !ran(static_cast<Check>(check), nowUs)) {
            return false;
        }
    }
    return true;
}

std::vector<QualityAnalysis::Finding> QualityAnalysis::findings(std::int64_t nowUs) const
{
    std::vector<Finding> found;
    for (int b = 0; b < ButtonChatter::ButtonCount; ++b) {
        const ButtonChatter::Counts& counts = m_buttons.counts(static_cast<ButtonChatter::Button>(b));
        if (counts.chatter > 0) {
            found.push_back({"BUTTON_CHATTER_DETECTED",
                             std::string(ButtonChatter::name(static_cast<ButtonChatter::Button>(b))) + " button: " +
                                 std::to_string(counts.chatter) + " of " + std::to_string(counts.presses) +
                                 " presses came " + milliseconds(*counts.shortestGapUs) + " after a release"});
        }
    }
    for (const auto& [axis, wheel] : {std::pair{"vertical", &m_wheel}, std::pair{"horizontal", &m_tilt}}) {
        if (wheel->reversals() > 0) {
            found.push_back({"WHEEL_DIRECTION_REVERSAL", std::string(axis) + " wheel: " +
                                                             std::to_string(wheel->reversals()) +
                                                             " notch(es) against the turn"});
        }
    }
    if (m_idle.reports() > 0 && (m_idle.running(nowUs) || m_idle.done(nowUs))) {
        found.push_back({"POINTER_DRIFT_WHILE_IDLE", std::to_string(m_idle.reports()) + " movement report(s), " +
                                                         std::to_string(m_idle.counts()) + " counts, hands off"});
    }
    if (m_jumps.jumps() > 0) {
        found.push_back({"POINTER_JUMP", std::to_string(m_jumps.jumps()) + " jump(s), the largest " +
                                             std::to_string(m_jumps.largest()) + " counts in one report"});
    }
    const std::optional<double> hz = m_rate.rateHz();
    if (m_settings.minRateHz > 0 && ran(Rate, nowUs) && hz && *hz < m_settings.minRateHz) {
        char text[96];
        std::snprintf(text, sizeof text, "%.0f Hz, below the minimum of %u Hz", *hz, m_settings.minRateHz);
        found.push_back({"REPORT_RATE_BELOW_MINIMUM", text});
    }
    return found;
}

std::vector<QualityAnalysis::Measurement> QualityAnalysis::measurements() const
{
    std::vector<Measurement> figures;
    const auto add = [&figures](const std::string& name, double value, const char* unit) {
        figures.push_back({name, value, unit});
    };
    if (const std::optional<double> hz = m_rate.rateHz()) {
        add("ReportRate", *hz, "Hz");
        add("ReportIntervalMedian", *m_rate.medianUs() / 1000.0, "ms");
        add("ReportIntervalP1", *m_rate.percentileUs(0.01) / 1000.0, "ms");
        add("ReportIntervalP99", *m_rate.percentileUs(0.99) / 1000.0, "ms");
    }
    add("ReportIntervals", static_cast<double>(m_rate.intervals()), "count");
    add("Dropouts", static_cast<double>(m_rate.dropouts()), "count");
    for (int b = 0; b < ButtonChatter::ButtonCount; ++b) {
        const auto button = static_cast<ButtonChatter::Button>(b);
        const ButtonChatter::Counts& counts = m_buttons.counts(button);
        std::string name = ButtonChatter::name(button);
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
        add(name + "Presses", counts.presses, "count");
        add(name + "Chatter", counts.chatter, "count");
    }
    add("WheelNotchesUp", m_wheel.notchesUp(), "count");
    add("WheelNotchesDown", m_wheel.notchesDown(), "count");
    add("WheelReversals", m_wheel.reversals(), "count");
    add("TiltReversals", m_tilt.reversals(), "count");
    add("IdleMovementReports", m_idle.reports(), "count");
    add("IdleMovementCounts", static_cast<double>(m_idle.counts()), "counts");
    add("LargestJump", m_jumps.largest(), "counts");
    return figures;
}

}  // namespace pointerq
