#include "rawkit/TouchFrame.h"

namespace rawkit {

namespace {

std::optional<double> perInch(const ValueRange& range, const std::optional<double>& mm)
{
    if (!mm || *mm <= 0.0) {
        return std::nullopt;
    }
    return (static_cast<double>(range.high) - static_cast<double>(range.low)) / (*mm / 25.4);
}

}  // namespace

std::optional<double> TouchLayout::dpiX() const { return perInch(x, widthMm); }
std::optional<double> TouchLayout::dpiY() const { return perInch(y, heightMm); }

}  // namespace rawkit
