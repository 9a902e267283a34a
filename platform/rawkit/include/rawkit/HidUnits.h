#pragma once
// A HID value's physical extent in millimetres, from its physical range, unit and unit exponent.
#include <cstdint>
#include <optional>

namespace rawkit {

// The exponent as the descriptor stores it (a 4-bit two's complement, 0xE for -2) or already
// signed; both read the same.
int unitExponent(std::int32_t stored);

// The length of physicalMin..physicalMax in mm, when unit is a length in centimetres (SI linear)
// or inches (English linear); absent for any other unit, or an empty or reversed range.
std::optional<double> extentMm(std::int32_t physicalMin, std::int32_t physicalMax, std::uint32_t unit,
                               std::int32_t exponent);

}  // namespace rawkit
