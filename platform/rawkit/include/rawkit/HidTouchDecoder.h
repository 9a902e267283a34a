#pragma once
// Decodes a precision touchpad's input reports with the platform's HID parser, given the
// collection's preparsed data: every finger collection of the report (each one a link collection
// of its own, in declaration order) with its id, tip, confidence, position and the size and
// pressure where reported; the contact count, the scan time and the buttons. FrameAssembler puts
// the reports together into scans.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rawkit/TouchFrame.h"

namespace rawkit {

class HidTouchDecoder {
public:
    // Null, with the reason in error, when the collection has no finger with X and Y to decode.
    static std::unique_ptr<HidTouchDecoder> create(std::vector<std::uint8_t> preparsed, std::string& error);

    const TouchLayout& layout() const { return m_layout; }
    // The report's contacts; none when the report is not the contacts' (another report id).
    std::optional<TouchReport> decode(const std::uint8_t* report, std::size_t length) const;

private:
    struct Value {
        std::uint16_t usagePage = 0;
        std::uint16_t usage = 0;
        std::uint16_t linkCollection = 0;
        std::uint16_t bitSize = 0;
        std::int32_t logicalMin = 0;
    };
    struct Slot {
        Value x;
        Value y;
        std::optional<Value> id;
        std::optional<Value> width;
        std::optional<Value> height;
        std::optional<Value> pressure;
        bool confidence = false;   // the collection declares the confidence usage
    };
    class Caps;

    explicit HidTouchDecoder(std::vector<std::uint8_t> preparsed);
    bool describe(const Caps& caps, std::string& error);
    std::optional<std::int32_t> read(const Value& value, const std::uint8_t* report, std::size_t length) const;
    std::optional<std::int32_t> read(const std::optional<Value>& value, const std::uint8_t* report,
                                     std::size_t length) const;
    std::vector<std::uint16_t> pressed(std::uint16_t usagePage, std::uint16_t linkCollection,
                                       const std::uint8_t* report, std::size_t length) const;
    ContactReport contact(const Slot& slot, std::size_t index, const std::uint8_t* report, std::size_t length) const;

    std::vector<std::uint8_t> m_preparsed;
    TouchLayout m_layout;
    std::vector<Slot> m_slots;
    std::optional<Value> m_contactCount;
    std::optional<Value> m_scanTime;
    std::optional<std::uint16_t> m_buttonCollection;   // where the buttons are, when it has any
};

}  // namespace rawkit
