#include "touchq/TouchpadAnalysis.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace touchq {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

template <typename... Args>
std::string format(const char* pattern, Args... args)
{
    char text[160];
    std::snprintf(text, sizeof text, pattern, args...);
    return text;
}

std::string placeText(const std::optional<PointMm>& mm, const CoverageMap::Cell& cell)
{
    std::string text = format("row %u column %u", cell.row + 1, cell.column + 1);
    if (mm) {
        text += format(", %.1f x %.1f mm", mm->x, mm->y);
    }
    return text;
}

}  // namespace

const char* TouchpadAnalysis::name(Check check)
{
    static const char* const names[] = {"coverage", "contacts", "jitter", "rate", "idle", "buttons", "resolution"};
    return names[check];
}

bool TouchpadAnalysis::isCheckName(std::string_view given)
{
    for (int check = 0; check < CheckCount; ++check) {
        if (given == name(static_cast<Check>(check))) {
            return true;
        }
    }
    return false;
}

std::optional<TouchpadAnalysis::Settings> TouchpadAnalysis::settingsFrom(std::uint32_t minContacts,
                                                                        std::uint32_t maxJitterMicrons,
                                                                        bool judgeRate, std::uint32_t idleSeconds,
                                                                        const std::vector<std::string>& checks,
                                                                        std::string& error)
{
    Settings settings;
    settings.minContacts = minContacts == 0 ? kDefaultMinContacts : minContacts;
    settings.maxJitterMicrons = maxJitterMicrons == 0 ? kDefaultMaxJitterMicrons : maxJitterMicrons;
    settings.judgeRate = judgeRate;
    settings.idleUs = 1000000LL * (idleSeconds == 0 ? kDefaultIdleSeconds : idleSeconds);
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
            error = "RequiredChecks: \"" + given +
                    "\" is not a check; give coverage, contacts, jitter, rate, idle, buttons or resolution";
            return std::nullopt;
        }
    }
    return settings;
}

TouchpadAnalysis::TouchpadAnalysis(const rawkit::TouchLayout& layout, const Settings& settings)
    : m_layout(layout),
      m_settings(settings),
      m_scale(layout),
      m_coverage(layout),
      m_rest(m_scale),
      m_clicks(layout.x),
      m_resolution(layout)
{
}

void TouchpadAnalysis::add(const rawkit::TouchFrame& frame)
{
    m_tracker.apply(frame);
    const std::vector<rawkit::ContactTracker::Finger>& fingers = m_tracker.fingers();
    for (const rawkit::ContactTracker::Finger& finger : fingers) {
        m_coverage.add(finger.contact.x, finger.contact.y);
    }
    m_contacts.add(static_cast<unsigned>(fingers.size()));
    m_rest.add(frame.timeUs, fingers);
    m_rate.add(frame.timeUs, fingers);
    m_idle.add(frame);
    m_clicks.add(frame.buttons, fingers);
}

void TouchpadAnalysis::startIdle(std::int64_t nowUs)
{
    m_idle.start(nowUs, m_settings.idleUs);
}

bool TouchpadAnalysis::ran(Check check, std::int64_t nowUs) const
{
    switch (check) {
    case Coverage:
        return m_coverage.coveredCells() == m_coverage.totalCells();
    case Contacts:
        return m_contacts.most() >= m_settings.minContacts;
    case Jitter:
        return m_rest.rests() > 0;
    case Rate:
        return m_rate.intervals(ReportRate::One) >= kIntervalsForRate &&
               m_rate.intervals(ReportRate::Several) >= kIntervalsForRate;
    case Idle:
        return m_idle.done(nowUs);
    case Buttons:
        return m_clicks.done();
    case Resolve:
        return m_resolution.known();
    case CheckCount:
        break;
    }
    return false;
}

bool TouchpadAnalysis::complete(std::int64_t nowUs) const
{
    for (int check = 0; check < CheckCount; ++check) {
        if (m_settings.required[check] && !ran(static_cast<Check>(check), nowUs)) {
            return false;
        }
    }
    return true;
}

std::optional<TouchpadAnalysis::Finding> TouchpadAnalysis::rateFinding() const
{
    std::string detail;
    for (const ReportRate::Contacts kind : {ReportRate::One, ReportRate::Several}) {
        const std::optional<double> hz = m_rate.rateHz(kind);
        if (!hz || m_rate.intervals(kind) < kIntervalsForRate) {
            continue;
        }
        // Judged as shown, to the whole Hz: a pad at 125 Hz measures 124.9 in 10 us bins.
        const double shown = std::round(*hz);
        const double least = kind == ReportRate::One ? kMinRateOneHz : kMinRateSeveralHz;
        const char* contacts = kind == ReportRate::One ? "one finger" : "three fingers or more";
        if (shown < least) {
            detail += format("%s%s: %.0f Hz, below %.0f Hz", detail.empty() ? "" : "; ", contacts, shown, least);
        } else if (shown > kMaxRateHz) {
            detail += format("%s%s: %.0f Hz, above %.0f Hz", detail.empty() ? "" : "; ", contacts, shown, kMaxRateHz);
        }
    }
    if (detail.empty()) {
        return std::nullopt;
    }
    return Finding{"TOUCHPAD_REPORT_RATE_OUT_OF_RANGE", detail};
}

TouchpadAnalysis::Finding TouchpadAnalysis::ghosts() const
{
    std::string detail = format("%u contact(s) while hands off:", m_idle.ghosts());
    const char* separator = " ";
    for (const HandsOff::Ghost& ghost : m_idle.kept()) {
        detail += separator + format("contact %u", ghost.id) + (ghost.palm ? " (a palm)" : "") + " at " +
                  placeText(m_scale.place(ghost.x, ghost.y), m_coverage.cellOf(ghost.x, ghost.y)) +
                  format(", %.1f s into the period", static_cast<double>(ghost.afterUs) / 1e6);
        separator = "; ";
    }
    return Finding{"TOUCHPAD_GHOST_CONTACT", detail};
}

TouchpadAnalysis::Finding TouchpadAnalysis::deadZone() const
{
    const std::vector<CoverageMap::Cell> cells = m_coverage.uncovered();
    std::string detail = format("%zu of %u cells never touched", cells.size(), m_coverage.totalCells());
    if (const std::optional<CoverageMap::CellMm> size = m_coverage.placeOf(CoverageMap::Cell{})) {
        detail += format(" (cells of %.1f x %.1f mm; each at its top-left corner, in mm from the pad's)", size->width,
                         size->height);
    }
    const char* separator = ": ";
    for (const CoverageMap::Cell& cell : cells) {
        const std::optional<CoverageMap::CellMm> place = m_coverage.placeOf(cell);
        detail += separator + placeText(place ? std::optional<PointMm>(PointMm{place->left, place->top}) : std::nullopt, cell);
        separator = "; ";
    }
    return Finding{"TOUCHPAD_DEAD_ZONE", detail};
}

std::vector<TouchpadAnalysis::Finding> TouchpadAnalysis::findings(std::int64_t nowUs) const
{
    std::vector<Finding> found;
    const bool* required = m_settings.required;
    if (required[Jitter] && m_rest.jitterMicrons() && *m_rest.jitterMicrons() > m_settings.maxJitterMicrons) {
        found.push_back({"TOUCHPAD_JITTER", format("a resting finger moved up to %.0f \xC2\xB5m from its place, more than %.0f \xC2\xB5m",
                                                   *m_rest.jitterMicrons(), m_settings.maxJitterMicrons)});
    }
    if (required[Rate] && m_settings.judgeRate) {
        if (std::optional<Finding> rate = rateFinding()) {
            found.push_back(*rate);
        }
    }
    if (required[Idle] && m_idle.ghosts() > 0 && (m_idle.running(nowUs) || m_idle.done(nowUs))) {
        found.push_back(ghosts());
    }
    if (required[Resolve] && m_resolution.belowMinimum()) {
        found.push_back({"TOUCHPAD_RESOLUTION_BELOW_MINIMUM",
                         format("%.0f x %.0f dpi, below %.0f dpi", *m_resolution.dpiX(), *m_resolution.dpiY(),
                                Resolution::kMinimumDpi)});
    }
    return found;
}

std::vector<TouchpadAnalysis::Finding> TouchpadAnalysis::verdictFindings(std::int64_t nowUs) const
{
    std::vector<Finding> found;
    if (m_settings.required[Coverage] && !ran(Coverage, nowUs)) {
        found.push_back(deadZone());
    }
    if (m_settings.required[Contacts] && !ran(Contacts, nowUs)) {
        found.push_back({"TOUCHPAD_CONTACTS_BELOW_MINIMUM",
                         format("at most %u finger(s) at once, fewer than %u", m_contacts.most(), m_settings.minContacts)});
    }
    for (Finding& finding : findings(nowUs)) {
        found.push_back(std::move(finding));
    }
    return found;
}

std::vector<TouchpadAnalysis::Measurement> TouchpadAnalysis::measurements(unsigned long malformedFrames) const
{
    std::vector<Measurement> figures;
    const auto add = [&figures](const std::string& name, double value, const char* unit) {
        figures.push_back({name, value, unit});
    };
    const auto known = [](const std::optional<double>& value) { return value.value_or(kUnknown); };
    add("PadWidth", known(m_layout.widthMm), "mm");
    add("PadHeight", known(m_layout.heightMm), "mm");
    add("CellsCovered", m_coverage.coveredCells(), "count");
    add("CellsTotal", m_coverage.totalCells(), "count");
    add("MaxContacts", m_contacts.most(), "count");
    add("JitterMicrons", known(m_rest.jitterMicrons()), "um");
    for (const auto& [kind, suffix] : {std::pair{ReportRate::One, "OneContact"}, std::pair{ReportRate::Several, "SeveralContacts"}}) {
        const auto ms = [&](double fraction) {
            const std::optional<double> us = m_rate.percentileUs(kind, fraction);
            return us ? *us / 1000.0 : kUnknown;
        };
        add(std::string("ReportRate") + suffix, known(m_rate.rateHz(kind)), "Hz");
        add(std::string("ReportIntervalMedian") + suffix, ms(0.5), "ms");
        add(std::string("ReportIntervalP1") + suffix, ms(0.01), "ms");
        add(std::string("ReportIntervalP99") + suffix, ms(0.99), "ms");
        add(std::string("ReportIntervals") + suffix, static_cast<double>(m_rate.intervals(kind)), "count");
    }
    add("GhostContacts", m_idle.ghosts(), "count");
    add("PalmFrames", static_cast<double>(m_tracker.palmFrames()), "count");
    add("MalformedFrames", static_cast<double>(malformedFrames), "count");
    add("ResolutionX", known(m_resolution.dpiX()), "dpi");
    add("ResolutionY", known(m_resolution.dpiY()), "dpi");
    return figures;
}

}  // namespace touchq
