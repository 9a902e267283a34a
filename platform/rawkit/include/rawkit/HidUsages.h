#pragma once
// The HID usages a pointing device is recognised and decoded by (HID Usage Tables 1.3).
#include <cstdint>

namespace rawkit::hid {

constexpr std::uint16_t kGenericDesktop = 0x01;
constexpr std::uint16_t kPointer = 0x01;
constexpr std::uint16_t kMouse = 0x02;
constexpr std::uint16_t kX = 0x30;
constexpr std::uint16_t kY = 0x31;

constexpr std::uint16_t kButtonPage = 0x09;

constexpr std::uint16_t kDigitizer = 0x0D;
constexpr std::uint16_t kTouchPad = 0x05;
constexpr std::uint16_t kFinger = 0x22;
constexpr std::uint16_t kTipPressure = 0x30;
constexpr std::uint16_t kTipSwitch = 0x42;
constexpr std::uint16_t kConfidence = 0x47;
constexpr std::uint16_t kWidth = 0x48;
constexpr std::uint16_t kHeight = 0x49;
constexpr std::uint16_t kContactId = 0x51;
constexpr std::uint16_t kContactCount = 0x54;
constexpr std::uint16_t kScanTime = 0x56;

}  // namespace rawkit::hid
