#pragma once
// Where a pad's logical units lie in millimetres from its top-left corner, when the pad declares
// its size. Y grows downwards, as the device reports it.
#include <cstdint>
#include <optional>

#include "rawkit/TouchFrame.h"

namespace touchq {

struct PointMm {
    double x = 0.0;
    double y = 0.0;
};

class PadScale {
public:
    explicit PadScale(const rawkit::TouchLayout& layout);

    bool known() const { return m_mmPerUnitX.has_value() && m_mmPerUnitY.has_value(); }
    // The place of a position; none when the size is unknown.
    std::optional<PointMm> place(std::int32_t x, std::int32_t y) const;
    // The length of a displacement in micrometres; none when the size is unknown.
    std::optional<double> micrometres(double dxUnits, double dyUnits) const;

private:
    rawkit::ValueRange m_x;
    rawkit::ValueRange m_y;
    std::optional<double> m_mmPerUnitX;
    std::optional<double> m_mmPerUnitY;
};

}  // namespace touchq
