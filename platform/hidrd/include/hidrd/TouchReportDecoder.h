#pragma once
// Decodes a precision touchpad's input reports with our own descriptor parser, as the platform's
// parser does for rawkit::HidTouchDecoder: every collection of the touchpad collection that has
// an X and a Y is a finger (a slot of each report, in declaration order) with its id, tip,
// confidence, position and the size and pressure where declared; the contact count, the scan time
// and the buttons. rawkit::FrameAssembler puts the reports together into scans.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "hidrd/ButtonReader.h"
#include "hidrd/ReportDescriptor.h"
#include "hidrd/ReportValue.h"
#include "rawkit/TouchFrame.h"

namespace hidrd {

class TouchReportDecoder {
public:
    enum class Outcome { Decoded, OtherReport, TooShort };

    // The descriptor's first touchpad collection (Digitizer page, Touch Pad usage); a
    // DescriptorError saying what is missing when there is none, or no finger with X and Y.
    explicit TouchReportDecoder(const ReportDescriptor& descriptor);

    const rawkit::TouchLayout& layout() const { return m_layout; }
    std::uint8_t reportId() const { return m_reportId; }
    // The touchpad report's length, its id byte included.
    std::size_t reportBytes() const { return m_reportBytes; }

    // Decodes a whole report as the device sent it (its id byte first when the descriptor
    // declares ids). Another report (another id, or none at all) is left alone, and so is one
    // shorter than declared.
    Outcome decode(const std::uint8_t* report, std::size_t length, rawkit::TouchReport& out) const;

private:
    struct Slot {
        ReportValue x;
        ReportValue y;
        std::optional<ReportValue> id;
        std::optional<ReportValue> tip;
        std::optional<ReportValue> confidence;
        std::optional<ReportValue> width;
        std::optional<ReportValue> height;
        std::optional<ReportValue> pressure;
    };

    rawkit::TouchLayout m_layout;
    std::uint8_t m_reportId = 0;
    bool m_usesReportIds = false;
    std::size_t m_reportBytes = 0;
    std::vector<Slot> m_slots;
    std::optional<ReportValue> m_contactCount;
    std::optional<ReportValue> m_scanTime;
    ButtonReader m_buttons;
};

}  // namespace hidrd
