#include "touchq/Resolution.h"

namespace touchq {

Resolution::Resolution(const rawkit::TouchLayout& layout) : m_x(layout.dpiX()), m_y(layout.dpiY()) {}

bool Resolution::belowMinimum() const
{
    // A hair below, from the arithmetic of an exact 300, is not below.
    constexpr double kMinimum = kMinimumDpi - 1e-6;
    return known() && (*m_x < kMinimum || *m_y < kMinimum);
}

}  // namespace touchq
