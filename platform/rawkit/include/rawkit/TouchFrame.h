#pragma once
// What a precision touchpad reports, contact by contact: one input report as decoded (by the
// platform's HID parser or by our own descriptor parser), and one complete scan (a frame) as
// FrameAssembler puts it together from one report (parallel devices) or several (hybrid ones).
#include <cstdint>
#include <optional>
#include <vector>

namespace rawkit {

// One finger collection of a report.
struct ContactReport {
    std::uint32_t id = 0;
    bool tip = false;
    bool confidence = true;              // false: a palm; devices without the usage are confident
    std::int32_t x = 0;
    std::int32_t y = 0;                  // the device's own Y, growing downwards
    std::optional<std::int32_t> width;
    std::optional<std::int32_t> height;
    std::optional<std::int32_t> pressure;

    bool operator==(const ContactReport&) const = default;
};

// One input report of the touchpad collection: every finger collection in declaration order
// (whether or not the report fills it), the contact count and the buttons.
struct TouchReport {
    std::vector<ContactReport> slots;
    std::optional<unsigned> contactCount;   // absent: the device declares none
    std::optional<std::uint32_t> scanTime;  // in the device's 100 us units
    std::uint8_t buttons = 0;               // bit 0 button 1 (a clickpad's own click), bit 1 button 2...
};

// One complete scan: the contacts the device counted, with its buttons.
struct TouchFrame {
    std::int64_t timeUs = 0;                // when its last report came, since the session began
    std::vector<ContactReport> contacts;
    std::uint8_t buttons = 0;
    std::optional<std::uint32_t> scanTime;

    bool operator==(const TouchFrame&) const = default;
};

// The logical range of one value of a HID report.
struct ValueRange {
    std::int32_t low = 0;
    std::int32_t high = 0;
    bool operator==(const ValueRange&) const = default;
};

// A touchpad as its descriptor declares it.
struct TouchLayout {
    ValueRange x;
    ValueRange y;
    std::optional<ValueRange> width;        // absent: the device reports no contact width
    std::optional<double> widthMm;          // the physical extents; absent: size unknown
    std::optional<double> heightMm;
    unsigned slots = 1;                     // finger collections a report
    std::uint32_t maxContactId = 0xFFFFFFFFu;  // the contact identifier's logical maximum

    // Logical units per inch along X and Y; absent when the size is unknown.
    std::optional<double> dpiX() const;
    std::optional<double> dpiY() const;
};

}  // namespace rawkit
