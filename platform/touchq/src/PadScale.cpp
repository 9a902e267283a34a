#include "touchq/PadScale.h"

#include <cmath>

namespace touchq {

namespace {

std::optional<double> mmPerUnit(const rawkit::ValueRange& range, const std::optional<double>& mm)
{
    const double units = static_cast<double>(range.high) - static_cast<double>(range.low);
    if (!mm || !(*mm > 0.0) || units <= 0.0) {
        return std::nullopt;
    }
    return *mm / units;
}

}  // namespace

PadScale::PadScale(const rawkit::TouchLayout& layout)
    : m_x(layout.x),
      m_y(layout.y),
      m_mmPerUnitX(mmPerUnit(layout.x, layout.widthMm)),
      m_mmPerUnitY(mmPerUnit(layout.y, layout.heightMm))
{
}

std::optional<PointMm> PadScale::place(std::int32_t x, std::int32_t y) const
{
    if (!known()) {
        return std::nullopt;
    }
    return PointMm{(static_cast<double>(x) - m_x.low) * *m_mmPerUnitX, (static_cast<double>(y) - m_y.low) * *m_mmPerUnitY};
}

std::optional<double> PadScale::micrometres(double dxUnits, double dyUnits) const
{
    if (!known()) {
        return std::nullopt;
    }
    return 1000.0 * std::hypot(dxUnits * *m_mmPerUnitX, dyUnits * *m_mmPerUnitY);
}

}  // namespace touchq
