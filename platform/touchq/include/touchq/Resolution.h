#pragma once
// The pad's input resolution as its descriptor declares it: logical units per inch along X and
// Y. Judged without any input; a pad that does not declare its size has none to judge.
#include <optional>

#include "rawkit/TouchFrame.h"

namespace touchq {

class Resolution {
public:
    static constexpr double kMinimumDpi = 300.0;

    explicit Resolution(const rawkit::TouchLayout& layout);

    std::optional<double> dpiX() const { return m_x; }
    std::optional<double> dpiY() const { return m_y; }
    bool known() const { return m_x.has_value() && m_y.has_value(); }
    // Either axis below the minimum.
    bool belowMinimum() const;

private:
    std::optional<double> m_x;
    std::optional<double> m_y;
};

}  // namespace touchq
