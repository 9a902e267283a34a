#pragma once
// The extended usages the touchpad and mouse decoders look for (HID Usage Tables 1.3).
#include "hidrd/ReportDescriptor.h"

namespace hidrd::usages {

constexpr Usage kMouse = usage(0x01, 0x02);
constexpr Usage kPointer = usage(0x01, 0x01);
constexpr Usage kX = usage(0x01, 0x30);
constexpr Usage kY = usage(0x01, 0x31);
constexpr Usage kWheel = usage(0x01, 0x38);
constexpr Usage kAcPan = usage(0x0C, 0x238);
constexpr std::uint16_t kButtonPage = 0x09;

constexpr Usage kTouchPad = usage(0x0D, 0x05);
constexpr Usage kTipPressure = usage(0x0D, 0x30);
constexpr Usage kTipSwitch = usage(0x0D, 0x42);
constexpr Usage kConfidence = usage(0x0D, 0x47);
constexpr Usage kWidth = usage(0x0D, 0x48);
constexpr Usage kHeight = usage(0x0D, 0x49);
constexpr Usage kContactId = usage(0x0D, 0x51);
constexpr Usage kContactCount = usage(0x0D, 0x54);
constexpr Usage kScanTime = usage(0x0D, 0x56);

}  // namespace hidrd::usages
