#include "rawkit/HidUnits.h"

#include <cmath>

namespace rawkit {

namespace {

constexpr std::uint32_t kSystemSiLinear = 0x1;
constexpr std::uint32_t kSystemEnglishLinear = 0x3;

}  // namespace

int unitExponent(std::int32_t stored)
{
    if (stored >= 8 && stored <= 15) {
        return stored - 16;
    }
    return stored;
}

std::optional<double> extentMm(std::int32_t physicalMin, std::int32_t physicalMax, std::uint32_t unit,
                               std::int32_t exponent)
{
    // A length alone: the system nibble, then length to the first power and nothing else.
    const std::uint32_t system = unit & 0xF;
    if ((unit & ~0xFFu) != 0 || ((unit >> 4) & 0xF) != 1 ||
        (system != kSystemSiLinear && system != kSystemEnglishLinear) || physicalMax <= physicalMin) {
        return std::nullopt;
    }
    const double mmPerUnit = system == kSystemSiLinear ? 10.0 : 25.4;
    const double span = static_cast<double>(physicalMax) - static_cast<double>(physicalMin);
    return span * std::pow(10.0, unitExponent(exponent)) * mmPerUnit;
}

}  // namespace rawkit
