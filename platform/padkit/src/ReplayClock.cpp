#include "padkit/ReplayClock.h"

#include <charconv>
#include <cmath>

namespace padkit {

ReplayClock::ReplayClock() : m_factor(1.0) {}

ReplayClock::ReplayClock(double factor) : m_factor(factor) {}

std::optional<ReplayClock> ReplayClock::atSpeed(double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor)) {
        return std::nullopt;
    }
    return ReplayClock(factor);
}

ReplayClock ReplayClock::unpaced()
{
    return ReplayClock(0.0);
}

std::optional<ReplayClock> ReplayClock::parse(std::string_view text)
{
    if (text == "max") {
        return unpaced();
    }
    double factor = 0.0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), factor, std::chars_format::fixed);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return atSpeed(factor);
}

bool ReplayClock::isUnpaced() const
{
    return m_factor == 0.0;
}

double ReplayClock::wallMs(std::int64_t recordedMs) const
{
    return isUnpaced() ? 0.0 : static_cast<double>(recordedMs) / m_factor;
}

}  // namespace padkit
